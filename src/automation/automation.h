// The window and input commands as the interpreter calls them, with the
// target state that findwindow leaves for sendkeys and sendbuttons.
#pragma once

#include "find_window.h"
#include "mouse.h"
#include "send_keys.h"
#include "target_state.h"
#include "window_automation.h"
#include "window_search.h"

namespace velmora {

class Automation : public WindowAutomation {
 public:
  Automation(Engine& engine, Desktop& desktop);

  void FindWindow_Command(Engine& engine, bool Interactive, const ParsedCommand& command,
                          bool& LastCommandSucceeded) override;
  void SendKeys_Command(Engine& engine, bool Interactive, const ParsedCommand& command,
                        bool& LastCommandSucceeded) override;
  void UseMouse_Command(Engine& engine, bool Interactive, const ParsedCommand& command) override;
  void SendButtons_Command(Engine& engine, bool Interactive, const ParsedCommand& command,
                           bool& LastCommandSucceeded) override;

  const TargetState& Target() const { return target_; }
  WindowSearch& Search() { return search_; }

 private:
  WindowHandle Found_Target() const;  // the window findwindow chose, or 0

  Desktop& desktop_;
  TargetState target_;
  WindowSearch search_;
  FindWindow findWindow_;
  SendKeys sendKeys_;
  Mouse mouse_;
};

}  // namespace velmora
