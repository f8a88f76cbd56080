#include "window_search.h"

#include "engine.h"
#include "trap.h"

namespace velmora {

namespace {

void Append_Level(std::string& path, std::int32_t id, const std::string& className, const std::string& text) {
  path += std::to_string(id);
  path += ", \"";
  path += className;
  path += "\", \"";
  path += text;
  path += "\", ";
}

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
  return desktop.GetParent(window) != 0 ? static_cast<std::int32_t>(desktop.ControlId(window)) : 0;
}

std::string Window_Path_Of(Desktop& desktop, WindowHandle window) {
  std::string path;
  int levels = 0;
  for (WindowHandle w = window; w != 0; w = desktop.GetParent(w)) {
    ++levels;
    Append_Level(path, Child_Id_Of(desktop, w), desktop.ClassName(w, kTextBufferSize),
                 desktop.WindowText(w, kTextBufferSize));
  }
  return path + std::to_string(levels);
}

std::uint16_t WindowSearch::Find_Window_Like(std::vector<WindowHandle>& FoundList, WindowHandle StartWindow,
                                             std::int16_t /*Level*/, const std::string& WindowText,
                                             const std::string& ClassName, std::int32_t /*ChildID*/,
                                             const std::string& WindowPath) {
  Trap(engine_, engine_.state.InteractiveSession, "Velmora.(General).Find_Window_Like.TrappableErrors.1", kFatal,
       [&] {
         if (depth_ == 0) {
           foundCount_ = 0;
           FoundList.assign(1, 0);
         }
         Walk(FoundList, StartWindow, WindowText, ClassName, WindowPath);
       });
  return foundCount_;
}

// One level of the walk: each child's descendants first, then the child.
void WindowSearch::Walk(std::vector<WindowHandle>& found, WindowHandle start, const std::string& text,
                        const std::string& className, const std::string& path) {
  DepthLevel level(depth_);
  for (WindowHandle child = desktop_.GetWindow(start, WindowRelation::FirstChild); child != 0;
       child = desktop_.GetWindow(child, WindowRelation::Next)) {
    Walk(found, child, text, className, path);
    if (desktop_.ClassName(child, kTextBufferSize) != className) continue;
    if (desktop_.WindowText(child, kTextBufferSize) != text) continue;
    if (Child_Id_Of(desktop_, child) != TargetChildID) continue;
    if (Window_Path_Of(desktop_, child) != path) continue;
    if (foundCount_ == UINT16_MAX) throw OverflowError();
    ++foundCount_;
    found.push_back(child);
  }
}

}  // namespace velmora
