#include "list_box_mirror.h"

#include <algorithm>

namespace velmora {

namespace {

constexpr UINT kFlushMessage = WM_APP + 0x31;
// Rewriting one item of a long list costs as much as adding a few hundred.
constexpr std::size_t kRewritesBeforeRefill = 500;
constexpr std::size_t kFirstReserve = 256;
constexpr std::size_t kBytesPerItem = 48;

constexpr char kPosterClass[] = "VelmoraListMirror";

LRESULT Send(HWND listBox, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
  return SendMessageA(listBox, message, wParam, lParam);
}

}  // namespace

namespace {

// A message-only window of its own receives the end of a burst: hooking the
// list box itself would slow every one of its messages.
HWND Create_Poster(ListBoxMirror* mirror, WNDPROC procedure) {
  WNDCLASSEXA posterClass{};
  posterClass.cbSize = sizeof posterClass;
  posterClass.lpfnWndProc = procedure;
  posterClass.lpszClassName = kPosterClass;
  RegisterClassExA(&posterClass);
  HWND poster = CreateWindowExA(0, kPosterClass, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
  SetWindowLongPtrA(poster, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(mirror));
  return poster;
}

}  // namespace

ListBoxMirror::ListBoxMirror(ListModel& model, HWND listBox)
    : model_(model),
      listBox_(listBox),
      measureDc_(CreateCompatibleDC(nullptr)),
      widest_(model, [this](const std::string& text) { return Measure(text); }),
      poster_(Create_Poster(this, Poster_Procedure)) {
  Hold_Redraw();
  Refill();
  model_.AddObserver(this);
}

ListBoxMirror::~ListBoxMirror() {
  model_.RemoveObserver(this);
  Flush();
  DestroyWindow(poster_);
}

LRESULT CALLBACK ListBoxMirror::Poster_Procedure(HWND poster, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* mirror = reinterpret_cast<ListBoxMirror*>(GetWindowLongPtrA(poster, GWLP_USERDATA));
  if (message != kFlushMessage || !mirror) return DefWindowProcA(poster, message, wParam, lParam);
  mirror->Flush();
  return 0;
}

// The first change of a burst stops drawing and posts the message that ends
// the burst: it comes before any input queued meanwhile, so no click lands
// on a list that is not yet up to date.
void ListBoxMirror::Hold_Redraw() {
  if (held_) return;
  held_ = true;
  Send(listBox_, WM_SETREDRAW, FALSE);
  PostMessageA(poster_, kFlushMessage, 0, 0);
}

void ListBoxMirror::Flush() {
  if (!held_) return;
  if (stale_) Refill();
  held_ = false;
  rewrites_ = 0;
  Fit_Extent();
  Send(listBox_, WM_SETREDRAW, TRUE);
  InvalidateRect(listBox_, nullptr, TRUE);
}

long ListBoxMirror::Measure(const std::string& text) {
  SIZE size{};
  GetTextExtentPoint32A(measureDc_.get(), text.c_str(), static_cast<int>(text.size()), &size);
  return size.cx;
}

// A list narrower than its widest item scrolls to the item's end and a little
// beyond; a wide enough one does not scroll.
void ListBoxMirror::Fit_Extent() {
  const auto font = reinterpret_cast<HGDIOBJ>(Send(listBox_, WM_GETFONT));
  if (font != measuredFont_) {
    // The stock font stays the DC's own to restore.
    SelectObject(measureDc_.get(), font ? font : GetStockObject(SYSTEM_FONT));
    measuredFont_ = font;
    widest_.Remeasure();
  }
  RECT client{};
  GetClientRect(listBox_, &client);
  const long widest = widest_.Widest();
  const long extent = widest > client.right - client.left ? widest + 5 : 0;
  if (extent != extent_) Send(listBox_, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(extent));
  extent_ = extent;
}

void ListBoxMirror::Refill() {
  stale_ = false;
  const LRESULT top = Send(listBox_, LB_GETTOPINDEX);
  Send(listBox_, LB_RESETCONTENT);
  capacity_ = 0;
  Reserve_For_Append(model_.Count());
  for (const std::string& item : model_.Items())
    Send(listBox_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
  OnSelected(model_.Selected());
  Send(listBox_, LB_SETTOPINDEX, static_cast<WPARAM>(top));
}

// The list box grows its item array a few items at a time; room for as many
// again as it holds keeps a long load linear.
void ListBoxMirror::Reserve_For_Append(std::size_t count) {
  if (count < capacity_) return;
  const std::size_t more = std::max(kFirstReserve, count);
  Send(listBox_, LB_INITSTORAGE, more, static_cast<LPARAM>(more * kBytesPerItem));
  capacity_ = count + more;
}

void ListBoxMirror::OnCleared() {
  Hold_Redraw();
  stale_ = false;
  Send(listBox_, LB_RESETCONTENT);
  capacity_ = 0;
}

void ListBoxMirror::OnInserted(std::size_t index) {
  Hold_Redraw();
  if (stale_) return;
  Reserve_For_Append(model_.Count());
  Send(listBox_, LB_INSERTSTRING, index, reinterpret_cast<LPARAM>(model_.Item(static_cast<long>(index)).c_str()));
  // Adding after the selection leaves it alone, in the list box as in the model.
  if (model_.Selected() >= static_cast<long>(index)) Keep_Selection();
}

void ListBoxMirror::OnChanged(std::size_t index) {
  Hold_Redraw();
  if (stale_) return;
  if (++rewrites_ > kRewritesBeforeRefill) {
    stale_ = true;
    return;
  }
  Replace(index);
}

// The list box has no call to change an item's text: it is removed and
// added again, which drops the selection when it is the selected one and may
// scroll; both are put back.
void ListBoxMirror::Replace(std::size_t index) {
  const LRESULT top = Send(listBox_, LB_GETTOPINDEX);
  Send(listBox_, LB_DELETESTRING, index);
  Send(listBox_, LB_INSERTSTRING, index, reinterpret_cast<LPARAM>(model_.Item(static_cast<long>(index)).c_str()));
  if (model_.Selected() >= static_cast<long>(index)) Keep_Selection();
  if (Send(listBox_, LB_GETTOPINDEX) != top) Send(listBox_, LB_SETTOPINDEX, static_cast<WPARAM>(top));
}

void ListBoxMirror::OnRemoved(std::size_t index) {
  Hold_Redraw();
  if (stale_) return;
  Send(listBox_, LB_DELETESTRING, index);
  Keep_Selection();
}

void ListBoxMirror::OnSelected(long index) {
  if (!stale_) Send(listBox_, LB_SETCURSEL, static_cast<WPARAM>(index));
}

// The list box moves or drops its selection by its own rules when items come
// and go, and may move the selection without its caret (where the arrow keys
// start from); the model's selection is the one shown, caret and all.
void ListBoxMirror::Keep_Selection() {
  const long selected = model_.Selected();
  if (Send(listBox_, LB_GETCURSEL) != selected || Send(listBox_, LB_GETCARETINDEX) != selected) OnSelected(selected);
}

}  // namespace velmora
