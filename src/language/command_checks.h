// The parameter checks of the commands whose parameters are one short item:
// quoted texts, conditions, mouse and button letters. Each check reads the
// trimmed parameter text and fills the parsed command.
#pragma once

#include <string_view>

#include "parameter_errors.h"
#include "parsed_command.h"

namespace velmora {

// run, sendkeys: '"' text '"'. A lone quote cannot be unwrapped: InvalidCallError.
CheckResult Check_Quoted(std::string_view text, ParsedCommand& result);

// test: '"' name '" = "' value '"'. A lone quote: InvalidCallError.
CheckResult Check_Test(std::string_view text, ParsedCommand& result);

// if, while, until: "succeeded" or "failed", any case, then anything after a blank.
CheckResult Check_Condition(std::string_view text, ParsedCommand& result);

// usemouse: <s|d|n><l|m|r|c>, X, Y with X and Y from 0 to 65535.
CheckResult Check_UseMouse(std::string_view text, ParsedCommand& result);

// sendbuttons: <s|d><l|m|r>.
CheckResult Check_SendButtons(std::string_view text, ParsedCommand& result);

// debug: "on" or "off", any case. False when it is neither: "on" is taken.
bool Read_Debug_State(std::string_view text, ParsedCommand& result);

}  // namespace velmora
