// Real windows for the desktop tests: a window class whose windows record
// what reaches them, owners that destroy what a test made, a message pump
// bounded in time, and an interactive engine that drives the automation
// through the real Win32 desktop.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "automation_commands.h"
#include "win32_desktop.h"
#include "win32_host.h"
#include "win32_registry.h"

namespace velmora::test {

// Dispatches this thread's messages until `done` holds or the time is up;
// returns done() at the end.
bool Pump_Until(const std::function<bool()>& done, DWORD milliseconds);
// Dispatches this thread's messages for the whole time.
void Pump_For(DWORD milliseconds);

// What a recording window saw: the clicks of its child buttons and its own
// mouse button messages in order.
struct WindowRecord {
  struct Button {
    UINT message;
    POINT client;
  };
  std::map<int, int> clicksById;  // BN_CLICKED by control identifier
  std::vector<Button> buttons;
};

// A window class registered for one test and unregistered at its end. Its
// windows record into the WindowRecord passed at creation (may be null).
class RecordingClass {
 public:
  explicit RecordingClass(const std::string& name);
  ~RecordingClass();
  RecordingClass(const RecordingClass&) = delete;
  RecordingClass& operator=(const RecordingClass&) = delete;

  const std::string& Name() const { return name_; }
  bool Registered() const { return atom_ != 0; }

 private:
  std::string name_;
  ATOM atom_ = 0;
};

// Owns the windows a test creates; destroys them, newest first, at its end.
class Windows {
 public:
  Windows() = default;
  ~Windows();
  Windows(const Windows&) = delete;
  Windows& operator=(const Windows&) = delete;

  // A top-level window at the given screen rectangle, shown without being
  // activated. Popups without a caption are the default: Wine hands windows
  // with a caption to the window manager and, when one is destroyed, waits
  // two seconds for a window manager that Xvfb does not have.
  HWND TopLevel(const std::string& className, const std::string& title, RECT rect, WindowRecord* record = nullptr,
                DWORD style = WS_POPUP | WS_BORDER, HWND owner = nullptr, HMENU menu = nullptr);
  // A visible child with the given control identifier, at a rectangle of the parent's client area.
  HWND Child(HWND parent, const std::string& className, const std::string& text, int id, RECT rect, DWORD style = 0,
             WindowRecord* record = nullptr);

 private:
  HWND Keep(HWND window);
  std::vector<HWND> windows_;
};

WindowHandle Handle(HWND window);
std::string ProcessTag();  // this process's identifier, to make titles and class names unique

// An interactive engine on the real host and desktop with the automation
// attached: what the commands report goes to engine.DebugWindow.
class DesktopEngineTest : public testing::Test, protected AutomationCommands {
 protected:
  DesktopEngineTest() : AutomationCommands(engine, automation) {}

  Win32Host host;
  Win32Registry registry;
  Win32Desktop desktop;
  Engine engine{host, registry, &desktop};
  Automation automation{engine, desktop};

  void SetUp() override {
    engine.automation = &automation;
    engine.state.InteractiveSession = engine.state.DebugOn = true;
  }
  // A findwindow line for a control in a top-level window, picked at the
  // control's centre, with a time-out of one second.
  static std::string Find_Line(const std::string& title, const std::string& className, const std::string& text,
                               const std::string& controlClass, int id) {
    return "findwindow: 2, \"" + title + "\", \"" + className + "\", 0, 0.5, 0.5, \"" + text + "\", \"" + controlClass +
           "\", " + std::to_string(id) + ", 0.5, 0.5, 0.01";
  }
  // The debug lines that say something went wrong: error locations and notes.
  std::vector<std::string> Problem_Lines() const {
    std::vector<std::string> lines;
    for (const std::string& line : engine.DebugWindow.Items())
      if (line.rfind("Error Location:", 0) == 0 || line.rfind("Info:", 0) == 0) lines.push_back(line);
    return lines;
  }
};

}  // namespace velmora::test
