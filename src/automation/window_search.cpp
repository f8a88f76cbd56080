#include "window_search.h"

#include "engine.h"
#include "trap.h"

namespace velmora {

namespace {

// Keeps the depth right however a level of the walk ends.
class DepthLevel {
 public:
  explicit DepthLevel(std::uint16_t& depth) : depth_(depth) {
    if (depth_ == UINT16_MAX) throw OverflowError();
    ++depth_;
  }
  ~DepthLevel() { --depth_; }
  DepthLevel(const DepthLevel&) = delete;
  DepthLevel& operator=(const DepthLevel&) = delete;

 private:
  std::uint16_t& depth_;
};

}  // namespace

std::int32_t Child_Id_Of(Desktop& desktop, WindowHandle window) {
  return Child_Id_Of(desktop, window, desktop.GetParent(window));
}

std::int32_t Child_Id_Of(Desktop& desktop, WindowHandle window, WindowHandle parent) {
  return parent != 0 ? static_cast<std::int32_t>(desktop.ControlId(window)) : 0;
}

std::string Window_Path_Of(Desktop& desktop, WindowHandle window) {
  std::string path;
  int levels = 0;
  for (WindowHandle w = window; w != 0; w = desktop.GetParent(w)) {
    ++levels;
    path += Path_Level(Child_Id_Of(desktop, w), desktop.ClassName(w, kTextBufferSize),
                       desktop.WindowText(w, kTextBufferSize));
  }
  return path + std::to_string(levels);
}

struct WindowSearch::Target {
  const std::string& text;
  const std::string& className;
  const std::string& path;
  DescribedPath described;
  std::string innermost;  // the level that the found window itself must write
};

std::uint16_t WindowSearch::Find_Window_Like(std::vector<WindowHandle>& FoundList, WindowHandle StartWindow,
                                             std::int16_t /*Level*/, const std::string& WindowText,
                                             const std::string& ClassName, std::int32_t /*ChildID*/,
                                             const std::string& WindowPath) {
  Trap(engine_, engine_.state.InteractiveSession, "Velmora.(General).Find_Window_Like.TrappableErrors.1", kFatal, [&] {
    if (depth_ == 0) {
      foundCount_ = 0;
      FoundList.assign(1, 0);
    }
    const Target target{WindowText, ClassName, WindowPath, DescribedPath(WindowPath),
                        Path_Level(TargetChildID, ClassName, WindowText)};
    if (target.described.Describable()) Walk(FoundList, {StartWindow, false, std::nullopt}, target);
  });
  return foundCount_;
}

// The fit of the chain that a child of the holder continues: none (0), the
// holder's own when the child is its child window, else its parent's chain,
// read up to the top (an owner, or a window that a program re-parented).
std::optional<ChainFit> WindowSearch::Outer_Fit(WindowHandle parent, Holder& holder, const Target& target) {
  if (parent == 0) return ChainFit{};
  if (parent != holder.window) return target.described.Fit_Chain(desktop_, parent);
  if (!holder.known) {
    holder.fit = target.described.Fit_Chain(desktop_, parent);
    holder.known = true;
  }
  return holder.fit;
}

// One level of the walk: each child's descendants first, then the child. A
// child's own class and text must occur in the description before anything
// else about it is read. A child with fewer levels than described can only
// lead to a match below it; one with as many can only be a match itself.
void WindowSearch::Walk(std::vector<WindowHandle>& found, Holder holder, const Target& target) {
  DepthLevel level(depth_);
  const DescribedPath& described = target.described;
  for (WindowHandle child = desktop_.GetWindow(holder.window, WindowRelation::FirstChild); child != 0;
       child = desktop_.GetWindow(child, WindowRelation::Next)) {
    level_.assign(", \"");
    level_ += Class_Of(child);
    level_ += "\", \"";
    if (!described.Mentions(level_)) continue;
    level_ += desktop_.WindowText(child, kTextBufferSize);
    level_ += "\", ";
    if (!described.Mentions(level_)) continue;
    const WindowHandle parent = desktop_.GetParent(child);
    const std::optional<ChainFit> outer = Outer_Fit(parent, holder, target);
    if (!outer) continue;
    if (outer->levels + 1 < described.Levels()) {
      level_.insert(0, std::to_string(Child_Id_Of(desktop_, child, parent)));
      const auto fit = described.Fit_Level(level_, *outer);
      if (fit && !described.Inner(*fit).empty()) Walk(found, {child, true, fit}, target);
      continue;
    }
    if (outer->levels + 1 > described.Levels() || described.Inner(*outer) != target.innermost) continue;
    if (!Is_Match(child, target)) continue;
    if (foundCount_ == UINT16_MAX) throw OverflowError();
    ++foundCount_;
    found.push_back(child);
  }
}

void WindowSearch::Remember_Classes(bool on) {
  rememberClasses_ = on;
  classes_.clear();
}

const std::string& WindowSearch::Class_Of(WindowHandle window) {
  if (!rememberClasses_) return readClass_ = desktop_.ClassName(window, kTextBufferSize);
  const auto known = classes_.find(window);
  if (known != classes_.end()) return known->second;
  return classes_.emplace(window, desktop_.ClassName(window, kTextBufferSize)).first->second;
}

// The exact test, on values read afresh.
bool WindowSearch::Is_Match(WindowHandle window, const Target& target) {
  return desktop_.ClassName(window, kTextBufferSize) == target.className &&
         desktop_.WindowText(window, kTextBufferSize) == target.text &&
         Child_Id_Of(desktop_, window) == TargetChildID && Window_Path_Of(desktop_, window) == target.path;
}

}  // namespace velmora
