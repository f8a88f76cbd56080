# The started program ran in the script's folder with the expanded text, and
# the failed branch ran after the missing program.
set -e
for pair in "out.txt:hello from velmora" "failed.txt:the run failed"; do
  file="${pair%%:*}" text="${pair#*:}"
  if [ "$(tr -d '\r' <"$file" 2>/dev/null)" != "$text" ]; then
    echo "$file should hold '$text', holds: $(cat -A "$file" 2>/dev/null || echo '(no file)')"
    exit 1
  fi
done
