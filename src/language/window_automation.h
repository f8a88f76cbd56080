// The commands that act on windows and input. The interpreter dispatches to
// them through this interface; the automation library implements it.
#pragma once

#include "parsed_command.h"

namespace velmora {

struct Engine;

class WindowAutomation {
 public:
  virtual ~WindowAutomation() = default;
  virtual void FindWindow_Command(Engine& engine, bool Interactive, const ParsedCommand& command,
                                  bool& LastCommandSucceeded) = 0;
  virtual void SendKeys_Command(Engine& engine, bool Interactive, const ParsedCommand& command,
                                bool& LastCommandSucceeded) = 0;
  virtual void UseMouse_Command(Engine& engine, bool Interactive, const ParsedCommand& command) = 0;
  virtual void SendButtons_Command(Engine& engine, bool Interactive, const ParsedCommand& command,
                                   bool& LastCommandSucceeded) = 0;
};

}  // namespace velmora
