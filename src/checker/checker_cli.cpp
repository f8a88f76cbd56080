#include "checker_cli.h"

#include <optional>

#include "host.h"
#include "script_check.h"

namespace velmora {

namespace {

constexpr char kUsage[] =
    "Usage: velmora-check [options] script.vls...\n"
    "\n"
    "Checks Velmora scripts without running them. Each line is parsed and the\n"
    "blocks are paired exactly as a run does, and every faulty line is reported\n"
    "in the form that editors and build logs link to:\n"
    "  script.vls(12): error: <the text that the run would log>\n"
    "  script.vls(3): warning: <what will go wrong when the script runs>\n"
    "\n"
    "Options:\n"
    "  --help, -h, /?    show this text\n"
    "  --no-warnings     report errors only\n"
    "  --                every name after this is a script, even one starting with -\n"
    "\n"
    "Exit status: 0 when no script has an error (warnings allowed), 1 when any\n"
    "has, 2 for a usage error or a script that cannot be read.\n"
    "SPEED_FACTOR is read as a run reads it, since it scales the times checked.\n";

struct Options {
  bool help = false;
  bool warnings = true;
  std::vector<std::string> scripts;
  std::string fault;  // a usage error
};

Options Read_Options(const std::vector<std::string>& arguments) {
  Options options;
  bool namesOnly = false;
  for (const std::string& argument : arguments) {
    if (namesOnly || argument.empty() || (argument[0] != '-' && argument != "/?")) {
      options.scripts.push_back(argument);
    } else if (argument == "--") {
      namesOnly = true;
    } else if (argument == "--help" || argument == "-h" || argument == "/?") {
      options.help = true;
    } else if (argument == "--no-warnings") {
      options.warnings = false;
    } else if (options.fault.empty()) {
      options.fault = "unknown option " + argument;
    }
  }
  if (options.fault.empty() && !options.help && options.scripts.empty()) options.fault = "no script named";
  return options;
}

std::optional<std::vector<std::string>> Read_Lines(Host& host, const std::string& path, SystemError& error) {
  auto file = host.OpenText(path, FileMode::Input, error);
  if (!file) return std::nullopt;
  std::vector<std::string> lines;
  while (!file->AtEnd()) {
    std::string line;
    if (!file->ReadLine(line, error)) return std::nullopt;
    lines.push_back(std::move(line));
  }
  SystemError ignored;
  file->Close(ignored);
  return lines;
}

std::string Plural(long count, const char* word) {
  return std::to_string(count) + " " + word + (count == 1 ? "" : "s");
}

}  // namespace

int Run_Checker(Host& host, Registry& registry, const std::vector<std::string>& arguments, CheckerOutput& output) {
  const Options options = Read_Options(arguments);
  if (options.help) {
    output.out += kUsage;
    return kCheckClean;
  }
  if (!options.fault.empty()) {
    output.err += "velmora-check: " + options.fault + " (velmora-check --help tells more)\n";
    return kCheckUsage;
  }
  long errors = 0, warnings = 0;
  bool unreadable = false;
  for (const std::string& script : options.scripts) {
    SystemError error;
    const auto lines = Read_Lines(host, script, error);
    if (!lines) {
      output.err += "velmora-check: cannot read " + script + ": " + error.text + "\n";
      unreadable = true;
      continue;
    }
    for (const CheckFinding& finding : Check_Script(host, registry, *lines)) {
      if (!finding.error && !options.warnings) continue;
      ++(finding.error ? errors : warnings);
      const std::string where = finding.line > 0 ? "(" + std::to_string(finding.line) + ")" : "";
      output.out += script + where + (finding.error ? ": error: " : ": warning: ") + finding.text + "\n";
    }
  }
  output.out += "velmora-check: " + Plural(errors, "error") + ", " + Plural(warnings, "warning") + " in " +
                Plural(static_cast<long>(options.scripts.size()), "script") + "\n";
  return unreadable ? kCheckUsage : errors > 0 ? kCheckErrors : kCheckClean;
}

}  // namespace velmora
