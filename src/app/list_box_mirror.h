// Keeps a list box showing the items and the selection of a list model.
// Loading a script changes every line of the trace list, so a burst of
// changes is shown at once when the message queue is next idle instead of
// repainting and recounting the scroll bars after each item.
#pragma once

#include <windows.h>

#include "list_model.h"

namespace velmora {

class ListBoxMirror : public ListObserver {
 public:
  ListBoxMirror(ListModel& model, HWND listBox);
  ~ListBoxMirror() override;
  ListBoxMirror(const ListBoxMirror&) = delete;
  ListBoxMirror& operator=(const ListBoxMirror&) = delete;

  void OnCleared() override;
  void OnInserted(std::size_t index) override;
  void OnChanged(std::size_t index) override;
  void OnRemoved(std::size_t index) override;
  void OnSelected(long index) override;

  // Shows the changes held so far (the idle timer does it otherwise).
  void Flush();

 private:
  void Hold_Redraw();
  void Reserve_For_Append(std::size_t index);
  static void CALLBACK On_Idle(HWND listBox, UINT message, UINT_PTR timer, DWORD time);

  ListModel& model_;
  HWND listBox_;
  bool held_ = false;
  std::size_t capacity_ = 0;  // items the list box has room for without growing
};

}  // namespace velmora
