#include "win32_file_dialogs.h"

#include <commdlg.h>

#include <vector>

namespace velmora {

namespace {

constexpr std::size_t kNameBuffer = 4096;

}  // namespace

std::string Dialog_Filter(const std::string& filter) {
  std::string result = filter;
  for (char& c : result)
    if (c == '|') c = '\0';
  result.append(2, '\0');
  return result;
}

// The open dialog lets a new name through: opening a script that does not
// exist yet starts it empty. The save dialog asks before replacing a file.
std::optional<std::string> Win32FileDialogs::Show(const FileDialogRequest& request) {
  std::vector<char> name(kNameBuffer, '\0');
  request.InitialName.copy(name.data(), kNameBuffer - 1);
  const std::string filter = Dialog_Filter(request.Filter);
  const std::string extension = !request.DefaultExtension.empty() && request.DefaultExtension.front() == '.'
                                    ? request.DefaultExtension.substr(1)
                                    : request.DefaultExtension;
  OPENFILENAMEA dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner_;
  dialog.lpstrFilter = filter.c_str();
  dialog.nFilterIndex = 1;
  dialog.lpstrFile = name.data();
  dialog.nMaxFile = static_cast<DWORD>(name.size());
  dialog.lpstrInitialDir = request.InitialFolder.empty() ? nullptr : request.InitialFolder.c_str();
  dialog.lpstrTitle = request.Title.c_str();
  dialog.lpstrDefExt = extension.empty() ? nullptr : extension.c_str();
  dialog.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST;
  if (request.Save) dialog.Flags |= OFN_OVERWRITEPROMPT;
  const BOOL chosen = request.Save ? GetSaveFileNameA(&dialog) : GetOpenFileNameA(&dialog);
  if (!chosen) return std::nullopt;
  return std::string(name.data());
}

// Asked in the owner's name, as Windows programs ask; closing the box is Cancel.
SaveAnswer Win32FileDialogs::AskToSave(const std::string& name) {
  char title[256] = "";
  if (owner_) GetWindowTextA(owner_, title, sizeof title);
  const std::string text = "Save changes to " + name + "?";
  switch (MessageBoxA(owner_, text.c_str(), title, MB_YESNOCANCEL | MB_ICONWARNING)) {
    case IDYES:
      return SaveAnswer::Yes;
    case IDNO:
      return SaveAnswer::No;
    default:
      return SaveAnswer::Cancel;
  }
}

}  // namespace velmora
