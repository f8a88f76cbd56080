// The window search: every window below a start window whose class, text,
// child identifier and whole chain of ancestors match a description exactly.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "desktop.h"

namespace velmora {

struct Engine;

constexpr int kTextBufferSize = 255;

// The description of a window by itself and its ancestors, for example
// `1, "Button", "OK", 0, "#32770", "Setup", 2`.
std::string Window_Path_Of(Desktop& desktop, WindowHandle window);

// A window's child identifier: its control identifier when it has a parent, else 0.
std::int32_t Child_Id_Of(Desktop& desktop, WindowHandle window);

class WindowSearch {
 public:
  WindowSearch(Engine& engine, Desktop& desktop) : engine_(engine), desktop_(desktop) {}

  // Collects the matches depth-first, a window's descendants before the
  // window itself, into FoundList from index 1; returns their count. The
  // identifier compared is TargetChildID, shared with the other commands.
  std::uint16_t Find_Window_Like(std::vector<WindowHandle>& FoundList, WindowHandle StartWindow, std::int16_t Level,
                                 const std::string& WindowText, const std::string& ClassName, std::int32_t ChildID,
                                 const std::string& WindowPath);

  std::int32_t TargetChildID = 0;

 private:
  void Walk(std::vector<WindowHandle>& found, WindowHandle start, const std::string& text,
            const std::string& className, const std::string& path);

  Engine& engine_;
  Desktop& desktop_;
  std::uint16_t depth_ = 0;
  std::uint16_t foundCount_ = 0;
};

}  // namespace velmora
