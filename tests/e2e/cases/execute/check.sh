# The editor's log from the first run on, masked, as expected_run.vld holds
# it: the runs' frames, the stop at the breakpoint, two halts, the step, and
# the close that waited for the running line.
mask="$E2E_CASE/../../mask.sed"
diff <(sed -E -f "$mask" "$E2E_CASE/expected_run.vld") <(tr -d '\r' <run.vld | sed -n '/^\*\{49\}$/,$p' | sed -E -f "$mask")
