// One script line as the parser leaves it: the command word, its code and
// its checked parameters. Kept apart from the parser so that the parameter
// checks and the automation interface need only this record.
#pragma once

#include <cstdint>
#include <string>

#include "command_codes.h"

namespace velmora {

// MouseX and MouseY keep their values unless a usemouse line sets them.
struct ParsedCommand {
  std::string CommandWord;
  std::uint8_t CommandCode = kUnknownCommand;
  std::string Parameters;
  std::int32_t TimeOut = 0;
  std::int32_t MouseX = 0;
  std::int32_t MouseY = 0;
  bool ParseError = false;
};

}  // namespace velmora
