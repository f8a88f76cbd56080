#include "simple_commands.h"

#include <algorithm>

#include "careful_io.h"
#include "debug_log.h"
#include "engine.h"
#include "environment.h"
#include "session.h"
#include "start_info.h"
#include "text.h"
#include "trap.h"

namespace velmora {

namespace {
constexpr std::int64_t kLongestPauseSeconds = 60;  // keeps each pause within 16 bits of tenths
}

void Wait_Command(Engine& engine, bool Interactive, std::int32_t seconds) {
  Trap(engine, Interactive, "Velmora.(General).Wait_Command.TrappableErrors.1", kFatal, [&] {
    Log_Trace(engine, Interactive,
              "Total Elapsed Time:  " + std::to_string(seconds) + (seconds == 1 ? " second." : " seconds."));
    std::int64_t remaining = seconds;
    do {
      Pause_Tenths(engine, static_cast<int>(std::clamp<std::int64_t>(remaining, 0, kLongestPauseSeconds) * 10));
      remaining -= kLongestPauseSeconds;
    } while (remaining >= 1);
  });
}

void RunProgram_Command(Engine& engine, bool Interactive, const std::string& Parameters, bool& LastCommandSucceeded) {
  Trap(engine, Interactive, "Velmora.(General).RunProgram_Command.TrappableErrors.1", kFatal, [&] {
    std::string commandLine = Convert_EnvVars(engine, Interactive, Parameters);
    FileNumber style = static_cast<FileNumber>(WindowStyle::NormalFocus);
    SystemError failure;
    const long task = Careful_IO(engine, Interactive, kShell, style, commandLine, "",
                                 "Velmora.(General).RunProgram_Command.Shell.1", kGoOn, &failure);
    LastCommandSucceeded = task != -1;
    Explain_Start(engine, Interactive, commandLine, task == -1 ? std::optional(failure) : std::nullopt);
  });
}

void Debug_Command(Engine& engine, bool Interactive, bool& DebugOn, const std::string& Parameters) {
  Trap(engine, Interactive, "Velmora.(General).Debug_Command.TrappableErrors.1", kFatal,
       [&] { DebugOn = Trim(Parameters) != "off"; });
}

}  // namespace velmora
