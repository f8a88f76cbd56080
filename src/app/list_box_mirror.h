// Keeps a list box showing the items and the selection of a list model.
// Loading a script adds every line and then rewrites many of them, so a
// burst of changes is shown at once, after the handler that made it returns:
// drawing waits until then, and after many rewrites the list is refilled
// from the model in one go instead of item by item. The list scrolls
// sideways exactly to the end of its widest item, in the list's own font.
#pragma once

#include <windows.h>

#include "list_model.h"
#include "widest_item.h"
#include "win32_handles.h"

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

  // Shows the burst held so far (a message posted at its start does it otherwise).
  void Flush();
  // Sets the sideways scroll extent for the list's width and font now; the
  // form's window calls it after a resize.
  void Fit_Extent();

 private:
  void Hold_Redraw();
  void Refill();
  void Replace(std::size_t index);
  void Reserve_For_Append(std::size_t count);
  void Keep_Selection();
  long Measure(const std::string& text);
  static LRESULT CALLBACK Poster_Procedure(HWND poster, UINT message, WPARAM wParam, LPARAM lParam);

  ListModel& model_;
  HWND listBox_;
  // Text is measured on a memory device context of our own: a window's DC
  // costs a round trip to the display server on every item under Wine.
  ScopedMemoryDC measureDc_;
  HGDIOBJ measuredFont_ = nullptr;  // the font the widths were measured in
  WidestItem widest_;
  long extent_ = 0;  // the horizontal extent given last
  HWND poster_;
  bool held_ = false;
  bool stale_ = false;        // too many rewrites: the list box waits for a refill
  std::size_t rewrites_ = 0;  // items rewritten in this burst
  std::size_t capacity_ = 0;  // items the list box has room for without growing
};

}  // namespace velmora
