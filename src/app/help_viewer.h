// Velmora's help: the compiled HTML help file beside velmora.exe, shown by
// the system's HTML Help viewer (hhctrl.ocx, loaded when first needed).
#pragma once

#include <windows.h>

#include <string>

namespace velmora {

// The contents: the help file at its first page.
void Show_Help_Contents(HWND owner, const std::string& helpFile);
// One page of the help file, by its name without ".html".
void Show_Help_Page(HWND owner, const std::string& helpFile, const std::string& page);
// Closes every help window the program opened; called before it ends.
void Close_Help();

}  // namespace velmora
