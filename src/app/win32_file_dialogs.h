// The common open and save dialogs of the system.
#pragma once

#include <windows.h>

#include "file_dialogs.h"

namespace velmora {

class Win32FileDialogs : public FileDialogs {
 public:
  void SetOwner(HWND owner) { owner_ = owner; }
  std::optional<std::string> Show(const FileDialogRequest& request) override;
  SaveAnswer AskToSave(const std::string& name) override;

 private:
  HWND owner_ = nullptr;
};

// "Text (*.txt)|*.txt|All (*.*)|*.*" as the dialog wants it: zero-separated, ended by two zeros.
std::string Dialog_Filter(const std::string& filter);

}  // namespace velmora
