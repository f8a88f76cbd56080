# The editor's stored settings go, so that the next case starts fresh.
source "$E2E_LIB" && forget_settings Editor
