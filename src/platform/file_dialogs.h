// The file dialogs seam: the common open and save dialogs. The Win32 one shows
// the real dialogs; tests answer them from a script of replies.
#pragma once

#include <optional>
#include <string>

namespace velmora {

struct FileDialogRequest {
  bool Save = false;
  std::string Title;
  std::string DefaultExtension;  // with its dot, such as ".VLS"
  // Pairs of description and pattern joined by "|": "Velmora Script (*.vls)|*.vls|All Files (*.*)|*.*".
  std::string Filter;
  std::string InitialFolder;
  std::string InitialName;  // without quotes; empty for none
};

class FileDialogs {
 public:
  virtual ~FileDialogs() = default;
  // The chosen file name, or nothing when the user cancelled.
  virtual std::optional<std::string> Show(const FileDialogRequest& request) = 0;
};

}  // namespace velmora
