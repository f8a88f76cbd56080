// The file dialogs seam: the common open and save dialogs, and the question
// before unsaved changes would be lost. The Win32 one shows
// the real dialogs; tests answer them from a script of replies.
#pragma once

#include <functional>
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

enum class SaveAnswer { Yes, No, Cancel };

class FileDialogs {
 public:
  virtual ~FileDialogs() = default;
  // The chosen file name, or nothing when the user cancelled.
  virtual std::optional<std::string> Show(const FileDialogRequest& request) = 0;
  // "Save changes to <name>?" with Yes, No and Cancel, before changes would be lost.
  virtual SaveAnswer AskToSave(const std::string& name) = 0;
};

// Whether unsaved changes may now be replaced: there are none, the user
// answered No, or answered Yes and `save` saved them (it returns whether it did).
inline bool Changes_May_Go(FileDialogs& dialogs, const std::string& name, bool changed,
                           const std::function<bool()>& save) {
  if (!changed) return true;
  switch (dialogs.AskToSave(name)) {
    case SaveAnswer::Yes:
      return save();
    case SaveAnswer::No:
      return true;
    case SaveAnswer::Cancel:
      break;
  }
  return false;
}

}  // namespace velmora
