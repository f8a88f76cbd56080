// What the parts of the editor share: whether the script differs from its
// file, and whether a run or a pick is under way. The form closes only when
// neither is; a close asked for meanwhile waits for the end.
#pragma once

#include "form_window.h"

namespace velmora {

class EditorActivity {
 public:
  explicit EditorActivity(FormWindow& window) : window_(window) {}

  bool Script_Changed() const { return scriptChanged_; }
  void Set_Script_Changed(bool changed) { scriptChanged_ = changed; }
  bool Running() const { return running_; }
  void Set_Running(bool running) { running_ = running; }
  bool Picking() const { return picking_; }
  void Set_Picking(bool picking) { picking_ = picking; }
  bool Close_Requested() const { return closeRequested_; }

  // True when nothing is under way; else the close is kept for later.
  bool May_Close_Now() {
    if (!running_ && !picking_) return true;
    closeRequested_ = true;
    return false;
  }
  // Called as a run or pick ends: the close that waited for it goes ahead.
  void Close_If_Requested() {
    if (!closeRequested_ || running_ || picking_) return;
    closeRequested_ = false;
    window_.Close();
  }

 private:
  FormWindow& window_;
  bool scriptChanged_ = false;
  bool running_ = false;
  bool picking_ = false;
  bool closeRequested_ = false;
};

}  // namespace velmora
