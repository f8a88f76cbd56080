#include "list_model.h"

#include <stdexcept>

namespace velmora {

namespace {
const std::string kEmpty;
}

const std::string& ListModel::Item(long index) const {
  if (index < 0 || static_cast<std::size_t>(index) >= items_.size()) return kEmpty;
  return items_[static_cast<std::size_t>(index)];
}

void ListModel::Add(std::string text) {
  items_.push_back(std::move(text));
  Tell([&](ListObserver& o) { o.OnInserted(items_.size() - 1); });
}

void ListModel::Insert(std::size_t index, std::string text) {
  if (index > items_.size()) throw std::out_of_range("Invalid list index");
  items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(index), std::move(text));
  if (selected_ >= static_cast<long>(index)) ++selected_;
  Tell([&](ListObserver& o) { o.OnInserted(index); });
}

void ListModel::Set(std::size_t index, std::string text) {
  items_.at(index) = std::move(text);
  Tell([&](ListObserver& o) { o.OnChanged(index); });
}

void ListModel::Remove(std::size_t index) {
  if (index >= items_.size()) throw std::out_of_range("Invalid list index");
  items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(index));
  if (selected_ >= static_cast<long>(items_.size())) selected_ = static_cast<long>(items_.size()) - 1;
  Tell([&](ListObserver& o) { o.OnRemoved(index); });
}

void ListModel::Clear() {
  items_.clear();
  selected_ = kNoSelection;
  Tell([&](ListObserver& o) { o.OnCleared(); });
}

std::vector<std::string> ListModel::Take_Items() {
  std::vector<std::string> items = std::move(items_);
  Clear();
  return items;
}

// Like a list box: selecting outside the list is an error, -1 clears the selection.
void ListModel::Select(long index) {
  if (index < kNoSelection || index >= static_cast<long>(items_.size())) throw std::out_of_range("Invalid list index");
  selected_ = index;
  Tell([&](ListObserver& o) { o.OnSelected(index); });
}

}  // namespace velmora
