// Real windows for the desktop tests, a bounded message pump, and an
// interactive engine driving the automation through the real Win32 desktop.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "automation_commands.h"
#include "win32_desktop.h"
#include "win32_host.h"
#include "win32_registry.h"

namespace velmora::test {

// Dispatches this thread's messages until `done` holds or the time is up; returns done().
bool Pump_Until(const std::function<bool()>& done, DWORD milliseconds);
inline void Pump_For(DWORD milliseconds) {
  Pump_Until([] { return false; }, milliseconds);
}

// Owns the windows a test creates and destroys them, newest first.
struct Windows {
  ~Windows();
  // Shown without being activated, and without a caption: Wine hands captioned
  // windows to the window manager and, destroying one, waits two seconds for
  // a window manager that Xvfb does not have.
  HWND TopLevel(const std::string& className, const std::string& title, RECT rect, DWORD style = WS_POPUP | WS_BORDER,
                HWND owner = nullptr);
  HWND Child(HWND parent, const std::string& className, const std::string& text, int id, RECT rect, DWORD style = 0);
  std::vector<HWND> made;
};

// Starts a program beside this one (output: its standard output); its process, or none.
PROCESS_INFORMATION Start_Beside(const std::string& program, const std::string& arguments, HANDLE output = nullptr);

WindowHandle Handle(HWND window);
std::string ProcessTag();  // this process's identifier, to make titles unique

// An interactive engine with the automation on the real host and desktop; reports go to engine.DebugWindow.
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
  // A findwindow line for a control at its centre, with a time-out of one second.
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
