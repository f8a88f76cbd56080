#include "trace_extent.h"

namespace velmora {

TraceExtent::TraceExtent(ListModel& list, Measure measure) : list_(list), measure_(std::move(measure)) {
  Remeasure();
  list_.AddObserver(this);
}

TraceExtent::~TraceExtent() { list_.RemoveObserver(this); }

void TraceExtent::Count(long width, int delta) {
  long& count = counts_[width];
  count += delta;
  if (count == 0) counts_.erase(width);
}

void TraceExtent::Remeasure() {
  widths_.clear();
  counts_.clear();
  widths_.reserve(list_.Count());
  for (const std::string& item : list_.Items()) {
    widths_.push_back(measure_(item));
    Count(widths_.back(), 1);
  }
}

void TraceExtent::OnCleared() {
  widths_.clear();
  counts_.clear();
}

void TraceExtent::OnInserted(std::size_t index) {
  const long width = measure_(list_.Item(static_cast<long>(index)));
  widths_.insert(widths_.begin() + static_cast<std::ptrdiff_t>(index), width);
  Count(width, 1);
}

void TraceExtent::OnChanged(std::size_t index) {
  Count(widths_[index], -1);
  widths_[index] = measure_(list_.Item(static_cast<long>(index)));
  Count(widths_[index], 1);
}

void TraceExtent::OnRemoved(std::size_t index) {
  Count(widths_[index], -1);
  widths_.erase(widths_.begin() + static_cast<std::ptrdiff_t>(index));
}

}  // namespace velmora
