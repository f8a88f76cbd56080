# The editor where it covers no button to pick, and the sample setup in the
# working folder, where "Browse for Program" opens.
place_editor_top_right
cp "$E2E_BIN/velmora-sample-setup.exe" .
