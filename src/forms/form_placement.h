// A form's window place kept in the settings store: "Top", "Left", "Height",
// "Width" and "WindowState" in the form's own section. Both editors use it.
#pragma once

#include <string>

#include "form_window.h"

namespace velmora {

class CRegSettings;
class Host;

// Restores the state (maximised or normal) and the normal place; a missing or
// damaged value takes the current one (centred for the edges).
void Restore_Form_Placement(CRegSettings& settings, const char* section, FormWindow& window);

// An edge on the screen is kept; one off it is kept as 0, except that a
// minimised form leaves the stored value alone.
void Save_Form_Placement(CRegSettings& settings, const char* section, FormWindow& window);

// A stored file name (held between double quotes), kept only when the file is
// still there; empty otherwise.
std::string Stored_File_Name(CRegSettings& settings, Host& host, const char* section, const char* key);

// File names are held between double quotes; these add and strip them.
std::string Quoted(const std::string& name);
std::string Unquoted(const std::string& name);

// Each file dialog opens in the folder (and drive) of the file it is about.
void Change_To_Folder_Of(Host& host, const std::string& quotedName);

}  // namespace velmora
