// The widest item of a list, kept as the list changes: each item is measured
// once, when it is added or changed, and a removal needs no new measuring.
// So a list's horizontal extent comes out as if every item were measured, at
// the cost of one measurement per changed item.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "list_model.h"

namespace velmora {

class WidestItem : public ListObserver {
 public:
  using Measure = std::function<long(const std::string&)>;

  WidestItem(ListModel& list, Measure measure);
  ~WidestItem() override;
  WidestItem(const WidestItem&) = delete;
  WidestItem& operator=(const WidestItem&) = delete;

  // The width of the widest item; 0 for an empty list.
  long Widest() const { return counts_.empty() ? 0 : counts_.rbegin()->first; }
  void Remeasure();  // after the font changed

  void OnCleared() override;
  void OnInserted(std::size_t index) override;
  void OnChanged(std::size_t index) override;
  void OnRemoved(std::size_t index) override;
  void OnSelected(long) override {}

 private:
  void Count(long width, int delta);

  ListModel& list_;
  Measure measure_;
  std::vector<long> widths_;
  std::map<long, long> counts_;  // width -> number of items that wide
};

}  // namespace velmora
