# The placement and file names that the editor stored, and the second start,
# which loaded them without asking (expect/ holds the saved script).
stored="$(wine_run reg query 'HKCU\Software\Velmora Software\Velmora\Editor' 2>/dev/null | tr -d '\r')"
folder="$(wine_winpath "$PWD")"
# A first start centres the designed 9600 x 9000 twips on the 1280 x 1024 screen.
for pair in "Left=4800" "Top=3180" "Width=9600" "Height=9000" "WindowState=0" \
  "Script File=\"$folder\\saved.vls\"" "Debug File=\"$folder\\built.vld\""; do
  expect_line "$stored" "    ${pair%%=*}    REG_SZ    ${pair#*=}"
done
log="$(tr -d '\r' <built.vld)"
expect_line "$log" "Info: Script File Open:  $folder\\saved.vls"
expect_line "$log" "Info: Debug File Open:  $folder\\built.vld"
