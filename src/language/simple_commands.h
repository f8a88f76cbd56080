// The run, wait and debug commands.
#pragma once

#include <cstdint>
#include <string>

namespace velmora {

struct Engine;

// Logs the total, then pauses in steps of at most a minute.
void Wait_Command(Engine& engine, bool Interactive, std::int32_t seconds);

// Starts the program named by the expanded command line; does not wait for it.
// A failed start, or a 32-bit program that the system cannot run, gets an
// "Info: " line after the report that says why (start_info.h).
void RunProgram_Command(Engine& engine, bool Interactive, const std::string& Parameters, bool& LastCommandSucceeded);

void Debug_Command(Engine& engine, bool Interactive, bool& DebugOn, const std::string& Parameters);

}  // namespace velmora
