#include "velmora_menu.h"

namespace velmora {

namespace {

struct MenuEntry {
  MenuId Id;
  const char* Caption;
};

// Every entry has an access key of its own, so the menu works from the keyboard.
constexpr MenuEntry kEntries[] = {
    {MenuId::HelpContents, "&Contents"},     {MenuId::HelpOnHelp, "&How to Use Help"},
    {MenuId::About, "&About Velmora..."},    {MenuId::AssignEnvVar, "Assign Environment Variables in &Batch File"},
    {MenuId::FastPace, "Run at &Fast Pace"},       {MenuId::RecordActions, "&Record Actions"},
};

}  // namespace

std::optional<MenuId> Track_Velmora_Menu(HWND owner, HWND button, bool fastPace, bool recording) {
  HMENU menu = CreatePopupMenu();
  if (!menu) return std::nullopt;
  for (const MenuEntry& entry : kEntries) {
    if (entry.Id == MenuId::About || entry.Id == MenuId::FastPace) AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
    const bool on = (entry.Id == MenuId::FastPace && fastPace) || (entry.Id == MenuId::RecordActions && recording);
    const UINT checked = on ? MF_CHECKED : MF_UNCHECKED;
    AppendMenuA(menu, MF_STRING | checked, static_cast<UINT_PTR>(entry.Id), entry.Caption);
  }
  RECT place{};
  GetWindowRect(button, &place);
  // The owner must be the foreground window, or the menu would not close
  // when the user clicks elsewhere.
  SetForegroundWindow(owner);
  // Notifying: the owner hears of the menu loop (WM_ENTERMENULOOP) and keeps
  // its tooltips off the menu; the choice comes back here, not as WM_COMMAND.
  const int chosen = static_cast<int>(
      TrackPopupMenu(menu, TPM_LEFTALIGN | TPM_TOPALIGN | TPM_RETURNCMD, place.left, place.bottom, 0, owner, nullptr));
  DestroyMenu(menu);
  PostMessageA(owner, WM_NULL, 0, 0);
  if (chosen == 0) return std::nullopt;
  return static_cast<MenuId>(chosen);
}

}  // namespace velmora
