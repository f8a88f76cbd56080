// Words for a program that `run` could not start, written after the error
// report: the system's own text ("File not found", "Bad EXE format") does not
// say where a name was looked for, that a file is no program, or that a
// 32-bit program needs the system's 32-bit part.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host.h"

namespace velmora {

struct Engine;

// The processors of program headers (the machine field).
constexpr std::uint16_t kMachineI386 = 0x014c;
constexpr std::uint16_t kMachineAmd64 = 0x8664;

// The paths that a command line may begin with, in the order that starting a
// program tries them: the quoted first token; unquoted, the first word, the
// first two words, and so on up to the whole line.
std::vector<std::string> Program_Candidates(const std::string& commandLine);

struct NamedProgram {
  std::string path;  // as the command line writes it
  ProgramFile file;
};

// The program that a command line names: the first candidate whose file the
// host finds, or else the first candidate.
NamedProgram Find_Named_Program(Host& host, const std::string& commandLine);

// The "Info: " line for a start, or nothing where the system's text says
// enough. `failure` is empty when the program started.
std::optional<std::string> Start_Info(const NamedProgram& program, const std::optional<SystemError>& failure);

// Writes Start_Info's line, if any, for the command line to the debug log.
void Explain_Start(Engine& engine, bool interactive, const std::string& commandLine,
                   const std::optional<SystemError>& failure);

}  // namespace velmora
