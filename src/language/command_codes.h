// The command codes that the parser gives a script line and the interpreter
// dispatches on.
#pragma once

#include <cstdint>

namespace velmora {

enum CommandCode : std::uint8_t {
  kBlankLine = 0,
  kRunCommand = 1,
  kFindWindowCommand = 2,
  kSendKeysCommand = 3,
  kIfCommand = 4,
  kWhileCommand = 5,
  kUntilCommand = 6,
  kUseMouseCommand = 7,
  kWaitCommand = 8,
  kCommentLine = 9,
  kDebugCommand = 10,
  kQuitCommand = 11,
  kElseCommand = 12,
  kEndIfCommand = 13,
  kEndWhileCommand = 14,
  kRepeatCommand = 15,
  kTestCommand = 16,
  kSendButtonsCommand = 17,
  kUnknownCommand = 255,
};

}  // namespace velmora
