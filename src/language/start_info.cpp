#include "start_info.h"

#include <cstdio>

#include "debug_log.h"
#include "engine.h"
#include "text.h"

namespace velmora {

namespace {

// The codes that Windows gives for the failures these words explain.
constexpr long kFileNotFound = 2;
constexpr long kPathNotFound = 3;
constexpr long kAccessDenied = 5;
constexpr long kElevationRequired = 740;

bool Is_Blank(char c) { return c == ' ' || c == '\t'; }

bool Has_Folder(const std::string& path) { return path.find_first_of("\\/:") != std::string::npos; }

bool Ends_With_Msi(const std::string& path) {
  return path.size() >= 4 && Lower(path.substr(path.size() - 4)) == ".msi";
}

std::string Hex_Machine(std::uint16_t machine) {
  char text[8];
  std::snprintf(text, sizeof text, "0x%04X", machine);
  return text;
}

// Words from the kind of file alone, for a start that failed.
std::optional<std::string> Words_For_File(const NamedProgram& program, long code) {
  using Kind = ProgramFile::Kind;
  const std::string& path = program.path;
  switch (program.file.kind) {
    case Kind::Folder:
      return "Info: " + path + " is a folder, not a program.";
    case Kind::Missing:
      if ((code != kFileNotFound && code != kPathNotFound) || Has_Folder(path)) return std::nullopt;
      return "Info: No program " + path +
             " was found in Velmora's folder, the current folder, the Windows folders or a folder of the PATH.";
    case Kind::NotAProgram:
      if (Ends_With_Msi(path))
        return "Info: " + path + " is a Windows Installer package, not a program: start it with msiexec /i.";
      return "Info: " + path +
             " is not a Windows program (it may be a document, an old 16-bit program or a damaged file); run starts "
             "programs only.";
    case Kind::Program:
      if (program.file.machineRuns) return std::nullopt;
      return "Info: " + path + " is a program for another processor (machine " + Hex_Machine(program.file.machine) +
             "), which this system cannot run.";
    case Kind::Unreadable:
      return std::nullopt;
  }
  return std::nullopt;
}

}  // namespace

std::vector<std::string> Program_Candidates(const std::string& commandLine) {
  std::size_t start = 0;
  while (start < commandLine.size() && Is_Blank(commandLine[start])) ++start;
  const std::string line = commandLine.substr(start);
  if (!line.empty() && line[0] == '"') return {line.substr(1, line.find('"', 1) - 1)};
  std::vector<std::string> candidates;
  for (std::size_t i = 1; i < line.size(); ++i)
    if (Is_Blank(line[i]) && !Is_Blank(line[i - 1])) candidates.push_back(line.substr(0, i));
  candidates.push_back(line);
  return candidates;
}

NamedProgram Find_Named_Program(Host& host, const std::string& commandLine) {
  const std::vector<std::string> candidates = Program_Candidates(commandLine);
  for (const std::string& candidate : candidates) {
    ProgramFile file = host.InspectProgram(candidate);
    if (file.kind != ProgramFile::Kind::Missing && file.kind != ProgramFile::Kind::Folder) return {candidate, file};
  }
  return {candidates.front(), host.InspectProgram(candidates.front())};
}

std::optional<std::string> Start_Info(const NamedProgram& program, const std::optional<SystemError>& failure) {
  const ProgramFile& file = program.file;
  // Wine without its 32-bit part may even report such a program started: it ends at once.
  if (file.kind == ProgramFile::Kind::Program && file.machine == kMachineI386 && !file.machineRuns)
    return "Info: " + program.path +
           " is a 32-bit program, and this system cannot run 32-bit programs (under Wine: install Wine's 32-bit part, "
           "Debian's package wine32:i386).";
  if (!failure) return std::nullopt;
  if (failure->code == kElevationRequired)
    return "Info: " + program.path + " asks for administrator rights: run Velmora as administrator to start it.";
  if (failure->code == kAccessDenied && file.kind != ProgramFile::Kind::Folder)
    return "Info: " + program.path +
           " may not be run by this user: the file's permissions or a security policy forbid it.";
  return Words_For_File(program, failure->code);
}

void Explain_Start(Engine& engine, bool interactive, const std::string& commandLine,
                   const std::optional<SystemError>& failure) {
  if (const auto line = Start_Info(Find_Named_Program(engine.host, commandLine), failure))
    Log_Always(engine, interactive, *line);
}

}  // namespace velmora
