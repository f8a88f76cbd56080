# The editor's stored settings go, so that the next case starts fresh: once
# the editor that the script closed last has stored them as it ended.
source "$E2E_LIB" && { wait_for_end velmora.exe; forget_settings Editor; }
