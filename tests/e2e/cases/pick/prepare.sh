# The editor where it covers no button to pick.
place_editor_top_right
