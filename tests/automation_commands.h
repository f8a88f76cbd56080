// Script lines run through the window automation as the interpreter runs
// them (interactively), for the fixtures of the simulated and of the real
// desktop alike.
#pragma once

#include <string>

#include "automation.h"
#include "engine.h"
#include "parser.h"

namespace velmora {

class AutomationCommands {
 public:
  // The fixture's own engine and automation; bound before they are built.
  AutomationCommands(Engine& engine, Automation& automation) : engine_(engine), automation_(automation) {}

  ParsedCommand Parsed(const std::string& line) {
    ParsedCommand command;
    Parse_Command(engine_, true, line, 1.0, command, kNoEditorLine);
    return command;
  }
  // Each runs one line and tells whether the command succeeded.
  bool Find(const std::string& line) { return Run(&Automation::FindWindow_Command, line); }
  bool Send(const std::string& keys) { return Run(&Automation::SendKeys_Command, "sendkeys: \"" + keys + "\""); }
  bool Click(const std::string& code) { return Run(&Automation::SendButtons_Command, "sendbuttons: " + code); }

 private:
  using Command = void (Automation::*)(Engine&, bool, const ParsedCommand&, bool&);
  bool Run(Command command, const std::string& line) {
    bool succeeded = false;
    (automation_.*command)(engine_, true, Parsed(line), succeeded);
    return succeeded;
  }

  Engine& engine_;
  Automation& automation_;
};

}  // namespace velmora
