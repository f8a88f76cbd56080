// The Views seam: a list of text items with one selected index. The trace
// list, the debug list and the block table are such lists; in the automatic
// session they are plain models, in the editor a list box mirrors them.
#pragma once

#include <cstddef>
#include <string>
#include <algorithm>
#include <vector>

namespace velmora {

class ListObserver {
 public:
  virtual ~ListObserver() = default;
  virtual void OnCleared() = 0;
  virtual void OnInserted(std::size_t index) = 0;
  virtual void OnChanged(std::size_t index) = 0;
  virtual void OnRemoved(std::size_t index) = 0;
  virtual void OnSelected(long index) = 0;
};

class ListModel {
 public:
  static constexpr long kNoSelection = -1;

  std::size_t Count() const { return items_.size(); }
  // The item at the index; a position outside the list reads as empty.
  const std::string& Item(long index) const;
  const std::vector<std::string>& Items() const { return items_; }

  void Add(std::string text);
  void Insert(std::size_t index, std::string text);
  void Set(std::size_t index, std::string text);
  void Remove(std::size_t index);
  void Clear();
  // Empties the list and hands over its items.
  std::vector<std::string> Take_Items();
  void Reserve(std::size_t count) { items_.reserve(count); }

  long Selected() const { return selected_; }
  void Select(long index);

  // Observers hear of every change, in the order they were added.
  void AddObserver(ListObserver* observer) { observers_.push_back(observer); }
  void RemoveObserver(ListObserver* observer) { std::erase(observers_, observer); }

 private:
  std::vector<std::string> items_;
  long selected_ = kNoSelection;
  std::vector<ListObserver*> observers_;

  template <class Call>
  void Tell(Call call) {
    for (ListObserver* observer : observers_) call(*observer);
  }
};

}  // namespace velmora
