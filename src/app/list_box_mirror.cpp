#include "list_box_mirror.h"

namespace velmora {

ListBoxMirror::ListBoxMirror(ListModel& model, HWND listBox) : model_(model), listBox_(listBox) {
  SendMessageA(listBox_, LB_RESETCONTENT, 0, 0);
  for (std::size_t i = 0; i < model_.Count(); ++i) OnInserted(i);
  OnSelected(model_.Selected());
  model_.AddObserver(this);
}

ListBoxMirror::~ListBoxMirror() { model_.RemoveObserver(this); }

void ListBoxMirror::OnCleared() { SendMessageA(listBox_, LB_RESETCONTENT, 0, 0); }

void ListBoxMirror::OnInserted(std::size_t index) {
  SendMessageA(listBox_, LB_INSERTSTRING, index, reinterpret_cast<LPARAM>(model_.Item(static_cast<long>(index)).c_str()));
}

void ListBoxMirror::OnChanged(std::size_t index) {
  SendMessageA(listBox_, LB_DELETESTRING, index, 0);
  OnInserted(index);
}

void ListBoxMirror::OnRemoved(std::size_t index) { SendMessageA(listBox_, LB_DELETESTRING, index, 0); }

void ListBoxMirror::OnSelected(long index) { SendMessageA(listBox_, LB_SETCURSEL, static_cast<WPARAM>(index), 0); }

}  // namespace velmora
