if [ -e after.txt ]; then
  echo "the line after quit ran"
  exit 1
fi
