# The frozen program is ended first, whatever else failed; then each run
# must have stayed well within what a hung program used to cost.
set -e
source "$E2E_LIB"
end_windows_process frozen.pid
limit=40
[ "$E2E_VARIANT" = choose ] && limit=30
[ "$E2E_SECONDS" -lt "$limit" ] || { echo "the run took $E2E_SECONDS s; it must end in under $limit s" && exit 1; }
