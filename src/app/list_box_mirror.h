// Keeps a list box showing the items and the selection of a list model.
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

 private:
  ListModel& model_;
  HWND listBox_;
};

}  // namespace velmora
