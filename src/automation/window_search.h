// The window search: every window below a start window whose class, text,
// child identifier and whole chain of ancestors match a description exactly.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "described_path.h"
#include "desktop.h"

namespace velmora {

struct Engine;

constexpr int kTextBufferSize = 255;

// The description of a window by itself and its ancestors, for example
// `1, "Button", "OK", 0, "#32770", "Setup", 2`.
std::string Window_Path_Of(Desktop& desktop, WindowHandle window);

// A window's child identifier: its control identifier when it has a parent, else 0.
std::int32_t Child_Id_Of(Desktop& desktop, WindowHandle window);
// The same, with the window's parent (GetParent) already read.
std::int32_t Child_Id_Of(Desktop& desktop, WindowHandle window, WindowHandle parent);

class WindowSearch {
 public:
  WindowSearch(Engine& engine, Desktop& desktop) : engine_(engine), desktop_(desktop) {}

  // Collects the matches depth-first, a window's descendants before the
  // window itself, into FoundList from index 1; returns their count. The
  // identifier compared is TargetChildID, shared with the other commands.
  // Only windows whose chain of ancestors can still lead to the described
  // one are read, and only their children are walked: a child window's chain
  // goes on through the window that holds it, so below a window that cannot
  // be on the described chain only windows placed there with another
  // GetParent could match, and those are not looked for.
  std::uint16_t Find_Window_Like(std::vector<WindowHandle>& FoundList, WindowHandle StartWindow, std::int16_t Level,
                                 const std::string& WindowText, const std::string& ClassName, std::int32_t ChildID,
                                 const std::string& WindowPath);

  std::int32_t TargetChildID = 0;

  // While a search is repeated many times a second, the walk takes each
  // window's class from the first reading: a window never changes its class.
  // Off again, the readings are forgotten.
  void Remember_Classes(bool on);

 private:
  struct Target;
  // A window whose children are walked, and the fit of its chain once known.
  struct Holder {
    WindowHandle window = 0;
    bool known = false;
    std::optional<ChainFit> fit;
  };

  void Walk(std::vector<WindowHandle>& found, Holder holder, const Target& target);
  std::optional<ChainFit> Outer_Fit(WindowHandle parent, Holder& holder, const Target& target);
  bool Is_Match(WindowHandle window, const Target& target);
  const std::string& Class_Of(WindowHandle window);

  Engine& engine_;
  Desktop& desktop_;
  std::uint16_t depth_ = 0;
  std::uint16_t foundCount_ = 0;
  std::string level_;  // the level of the window being looked at, kept to spare allocations
  bool rememberClasses_ = false;
  std::string readClass_;  // a class read without remembering
  std::unordered_map<WindowHandle, std::string> classes_;
};

}  // namespace velmora
