# The other program is ended first, whatever else failed. It must have
# received no key and no click; the wizard holds what the script typed, and
# its check box agrees with the outcome of the one click on it.
# The wizard's result, line feeds at its end aside.
expect_result() { [ "$(cat result.txt)" == "$1" ] || { echo "result.txt holds: $(cat -A result.txt)" && exit 1; }; }
# A *_fast variant is its base variant played at the fast pace.
variant="${E2E_VARIANT%_fast}"
record=stolen.txt
[ "$variant" = cover ] && record=covered.txt
end_windows_process "$record.pid"
[ -f "$record" ] || { echo "the other program did not run (no $record)" && exit 1; }
[ ! -s "$record" ] || { echo "the other program received input:" && cat "$record" && exit 1; }
if [ "$variant" = cover ]; then
  # The covered click alone was refused; the keys and the click beside the cover went in.
  info="$(grep '^Info:' a.vld | tr -d '\r')"
  [ "$info" = 'Info: The click point is covered by "Hostile cover" (VelmoraHostile); no click was sent.' ] ||
    { echo "the Info lines are not the one of the covered click:" && echo "$info" && exit 1; }
  expect_result $'name=Ada\r\nfolder=C:\\Program Files\\Velmora Wizard\r\nshortcut=0\r'
  exit 0
fi
shortcut=0
[ -f clicked.txt ] && shortcut=1
expect_result $'name=Ada Lovelace\r\nfolder=C:\\Hostile\\Target (x86)\r\nshortcut='"$shortcut"$'\r'
# Each command that did not reach the wizard says why, in one of these lines.
unknown="$(grep '^Info:' a.vld | tr -d '\r' | grep -vE '^Info: ("[^"]*" \([^)]*\)( of "[^"]*")? took the keyboard focus( while keys were sent)?; [0-9]+ of [0-9]+ keys (were not sent|may not have arrived)\.|"[^"]*" \([^)]*\)( of "[^"]*")? took the foreground during the click; the click was not completed\.|The keys would go to .*; no keys were sent\.)$' || true)"
[ -z "$unknown" ] || { echo "unexpected Info lines:" && echo "$unknown" && exit 1; }
