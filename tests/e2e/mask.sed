# What differs from run to run in a debug log, replaced by placeholders. The
# runner applies it to the expected and to the real log alike, so expected
# logs may hold either the placeholder or any real value.

# Window handles, in decimal.
s/^( *Found Window:  )-?[0-9]+$/\1<HWND>/
s/^( *==>  Using Window:  )-?[0-9]+$/\1<HWND>/
s/^( *Window Handle :  )-?[0-9]+$/\1<HWND>/
s/^( *Possible Target:  )-?[0-9]+$/\1<HWND>/
s/^( *Info: Nearest window )-?[0-9]+ /\1<HWND> /

# Session time stamps: "  --> " and the date and time in the user's formats
# (11/21/2026 3:05:10 PM, 21.11.2026 15:05:10, 2026-11-21 15:05:10, ...).
s/(  --> )[0-9]{1,4}[./-][0-9]{1,2}[./-][0-9]{1,4} [0-9]{1,2}:[0-9]{2}(:[0-9]{2})?( ?[AaPp]\.?[Mm]\.?)?/\1<DATE TIME>/

# How long a findwindow waited (the line after its "Maximum Wait Time"): the
# time a real program took to show its window, one second more on a busy
# machine. The other elapsed times are those of fixed waits and stay exact.
/^ *Maximum Wait Time:  /{
  n
  s/^( *Total Elapsed Time:  )[0-9]+ seconds?\.$/\1<SECONDS>/
}
