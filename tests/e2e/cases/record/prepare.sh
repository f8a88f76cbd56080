# The editor where it covers no button of the installer.
place_editor_top_right
