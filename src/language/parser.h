// The script line parser: splits a line into its command word, code and
// parameters and checks the parameters of every command.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "parsed_command.h"

namespace velmora {

struct Engine;

// LineIndex value for a line that is not in the editor's trace list. Line
// indexes are 32-bit so that scripts are not limited to 32767 lines.
constexpr std::int32_t kNoEditorLine = -5;

// What a debug line with a value other than on or off logs (and then takes "on").
inline constexpr char kDebugAssumedOn[] = "Info: Debug state 'off' was not specified so ON is assumed!";

// True when the code is below 255: a blank line, a comment, or a known
// command with its parameters present (their checks may still have failed:
// see ParseError). Parameter errors are reported as fatal.
bool Parse_Command(Engine& engine, bool Interactive, std::string_view ScriptLine, double SpeedFactor,
                   ParsedCommand& result, std::int32_t LineIndex);

}  // namespace velmora
