#include "widest_item.h"

namespace velmora {

WidestItem::WidestItem(ListModel& list, Measure measure) : list_(list), measure_(std::move(measure)) {
  Remeasure();
  list_.AddObserver(this);
}

WidestItem::~WidestItem() { list_.RemoveObserver(this); }

void WidestItem::Count(long width, int delta) {
  long& count = counts_[width];
  count += delta;
  if (count == 0) counts_.erase(width);
}

void WidestItem::Remeasure() {
  widths_.clear();
  counts_.clear();
  widths_.reserve(list_.Count());
  for (const std::string& item : list_.Items()) {
    widths_.push_back(measure_(item));
    Count(widths_.back(), 1);
  }
}

void WidestItem::OnCleared() {
  widths_.clear();
  counts_.clear();
}

void WidestItem::OnInserted(std::size_t index) {
  const long width = measure_(list_.Item(static_cast<long>(index)));
  widths_.insert(widths_.begin() + static_cast<std::ptrdiff_t>(index), width);
  Count(width, 1);
}

void WidestItem::OnChanged(std::size_t index) {
  Count(widths_[index], -1);
  widths_[index] = measure_(list_.Item(static_cast<long>(index)));
  Count(widths_[index], 1);
}

void WidestItem::OnRemoved(std::size_t index) {
  Count(widths_[index], -1);
  widths_.erase(widths_.begin() + static_cast<std::ptrdiff_t>(index));
}

}  // namespace velmora
