#include "help_viewer.h"

#include "form_declaration.h"

namespace velmora {

namespace {

// The commands of HtmlHelp that Velmora uses.
constexpr UINT kDisplayTopic = 0x0000;  // HH_DISPLAY_TOPIC
constexpr UINT kDisplayToc = 0x0001;    // HH_DISPLAY_TOC
constexpr UINT kCloseAll = 0x0012;      // HH_CLOSE_ALL
constexpr char kTitle[] = "Velmora Help";

using HtmlHelpProcedure = HWND(WINAPI*)(HWND, LPCSTR, UINT, DWORD_PTR);

HtmlHelpProcedure Html_Help(bool load) {
  static HMODULE library = nullptr;
  static HtmlHelpProcedure procedure = nullptr;
  if (!library && load) {
    library = LoadLibraryA("hhctrl.ocx");
    if (library)
      procedure = reinterpret_cast<HtmlHelpProcedure>(reinterpret_cast<void*>(GetProcAddress(library, "HtmlHelpA")));
  }
  return procedure;
}

void Complain(HWND owner, const std::string& text) {
  MessageBoxA(owner, text.c_str(), kTitle, MB_OK | MB_ICONEXCLAMATION);
}

// A missing help file or viewer gets a message of its own: the viewer says
// nothing when it cannot open a file.
void Show(HWND owner, const std::string& helpFile, const std::string& address, UINT command) {
  if (GetFileAttributesA(helpFile.c_str()) == INVALID_FILE_ATTRIBUTES) {
    Complain(owner, "Help cannot be shown: the help file " + helpFile + " is missing.");
    return;
  }
  HtmlHelpProcedure help = Html_Help(true);
  if (!help) {
    Complain(owner, "Help cannot be shown: the HTML Help viewer (hhctrl.ocx) is not installed.");
    return;
  }
  if (!help(owner, address.c_str(), command, 0))
    Complain(owner, "Help cannot be shown: the HTML Help viewer could not open " + address + ".");
}

}  // namespace

void Show_Help_Contents(HWND owner, const std::string& helpFile) { Show(owner, helpFile, helpFile, kDisplayToc); }

void Show_Help_Page(HWND owner, const std::string& helpFile, const std::string& page) {
  Show(owner, helpFile, Help_Topic(helpFile, page), kDisplayTopic);
}

void Close_Help() {
  if (HtmlHelpProcedure help = Html_Help(false)) help(nullptr, nullptr, kCloseAll, 0);
}

}  // namespace velmora
