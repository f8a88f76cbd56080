#include "list_box_mirror.h"

#include <algorithm>

namespace velmora {

namespace {

constexpr std::size_t kFirstReserve = 256;
constexpr std::size_t kBytesPerItem = 48;

LRESULT Send(HWND listBox, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
  return SendMessageA(listBox, message, wParam, lParam);
}

}  // namespace

ListBoxMirror::ListBoxMirror(ListModel& model, HWND listBox) : model_(model), listBox_(listBox) {
  OnCleared();
  for (std::size_t i = 0; i < model_.Count(); ++i) OnInserted(i);
  OnSelected(model_.Selected());
  model_.AddObserver(this);
}

ListBoxMirror::~ListBoxMirror() {
  model_.RemoveObserver(this);
  Flush();
}

// The first change of a burst stops drawing; a zero-delay timer, which
// fires only once the queue holds nothing else, draws the result.
void ListBoxMirror::Hold_Redraw() {
  if (held_) return;
  held_ = true;
  Send(listBox_, WM_SETREDRAW, FALSE);
  SetTimer(listBox_, reinterpret_cast<UINT_PTR>(this), 0, On_Idle);
}

void CALLBACK ListBoxMirror::On_Idle(HWND, UINT, UINT_PTR timer, DWORD) {
  reinterpret_cast<ListBoxMirror*>(timer)->Flush();
}

void ListBoxMirror::Flush() {
  if (!held_) return;
  held_ = false;
  KillTimer(listBox_, reinterpret_cast<UINT_PTR>(this));
  Send(listBox_, WM_SETREDRAW, TRUE);
  InvalidateRect(listBox_, nullptr, TRUE);
}

// The list box grows its item array a few items at a time; room for as many
// again as it holds keeps a long load linear.
void ListBoxMirror::Reserve_For_Append(std::size_t index) {
  if (index < capacity_) return;
  const std::size_t more = std::max(kFirstReserve, index);
  Send(listBox_, LB_INITSTORAGE, more, static_cast<LPARAM>(more * kBytesPerItem));
  capacity_ = index + more;
}

void ListBoxMirror::OnCleared() {
  Hold_Redraw();
  Send(listBox_, LB_RESETCONTENT);
  capacity_ = 0;
}

void ListBoxMirror::OnInserted(std::size_t index) {
  Hold_Redraw();
  Reserve_For_Append(static_cast<std::size_t>(Send(listBox_, LB_GETCOUNT)));
  Send(listBox_, LB_INSERTSTRING, index, reinterpret_cast<LPARAM>(model_.Item(static_cast<long>(index)).c_str()));
}

// Replacing an item loses the list box's selection when it is the selected
// one, and may scroll: both are put back.
void ListBoxMirror::OnChanged(std::size_t index) {
  Hold_Redraw();
  const LRESULT top = Send(listBox_, LB_GETTOPINDEX);
  Send(listBox_, LB_DELETESTRING, index);
  Send(listBox_, LB_INSERTSTRING, index, reinterpret_cast<LPARAM>(model_.Item(static_cast<long>(index)).c_str()));
  if (Send(listBox_, LB_GETCURSEL) != model_.Selected()) OnSelected(model_.Selected());
  if (Send(listBox_, LB_GETTOPINDEX) != top) Send(listBox_, LB_SETTOPINDEX, static_cast<WPARAM>(top));
}

void ListBoxMirror::OnRemoved(std::size_t index) {
  Hold_Redraw();
  Send(listBox_, LB_DELETESTRING, index);
}

void ListBoxMirror::OnSelected(long index) { Send(listBox_, LB_SETCURSEL, static_cast<WPARAM>(index)); }

}  // namespace velmora
