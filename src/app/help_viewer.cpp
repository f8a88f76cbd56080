#include "help_viewer.h"

namespace velmora {

namespace {

constexpr UINT kDisplayToc = 1;  // HH_DISPLAY_TOC
using HtmlHelpProcedure = HWND(WINAPI*)(HWND, LPCSTR, UINT, DWORD_PTR);

HtmlHelpProcedure Html_Help() {
  static HtmlHelpProcedure procedure = [] {
    HMODULE library = LoadLibraryA("hhctrl.ocx");
    return library ? reinterpret_cast<HtmlHelpProcedure>(reinterpret_cast<void*>(GetProcAddress(library, "HtmlHelpA")))
                   : nullptr;
  }();
  return procedure;
}

void Show(HWND owner, const std::string& target, UINT command) {
  HtmlHelpProcedure help = Html_Help();
  if (!help) {
    MessageBoxA(owner, "Help cannot be shown: the HTML Help viewer (hhctrl.ocx) is not installed.", "Velmora Help",
                MB_OK | MB_ICONEXCLAMATION);
    return;
  }
  help(owner, target.c_str(), command, 0);
}

}  // namespace

void Show_Help_Contents(HWND owner, const std::string& helpFile) { Show(owner, helpFile, kDisplayToc); }
void Show_Help_On_Help(HWND owner, const std::string& helpFile) { Show(owner, helpFile, kDisplayToc); }
void Show_Help_For(HWND owner, const std::string& helpFile, ControlId) { Show(owner, helpFile, kDisplayToc); }
void Show_Whats_This(HWND, ControlId) {}

}  // namespace velmora
