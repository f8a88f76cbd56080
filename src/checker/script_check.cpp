#include "script_check.h"

#include <algorithm>
#include <cstring>
#include <exception>

#include "engine.h"
#include "find_window.h"
#include "key_notation.h"
#include "parser.h"
#include "preprocessor.h"
#include "session.h"

namespace velmora {

namespace {

// What the parser accepts but a run will not get past or should not meet.
class Warnings {
 public:
  Warnings(Engine& engine, std::vector<CheckFinding>& findings) : engine_(engine), findings_(findings) {}

  void Line(const std::string& text, long number) {
    ParsedCommand parsed;
    if (!Parse_Command(engine_, false, text, engine_.state.SpeedFactor, parsed, kNoEditorLine)) return;
    number_ = number;
    if (parsed.ParseError) {
      // A run only logs a bad debug value; every other fault is reported already.
      if (parsed.CommandCode == kDebugCommand) Warn(std::string(kDebugAssumedOn).substr(std::strlen("Info: ")));
      return;
    }
    switch (parsed.CommandCode) {
      case kFindWindowCommand:
        findWindowSeen_ = true;
        return Titles(parsed.Parameters);
      case kSendKeysCommand:
        Keys(parsed.Parameters);
        return Target("sendkeys", "No Window found to SendKeys_To");
      case kSendButtonsCommand:
        return Target("sendbuttons", "No Window found to SendButtons_To");
      default:
        return;
    }
  }

 private:
  void Warn(std::string text) { findings_.push_back({number_, false, std::move(text)}); }

  void Target(const char* command, const char* runError) {
    if (findWindowSeen_) return;
    Warn(std::string(command) + " before any findwindow line: the run ends here with \"" + runError + "\"");
  }

  // A title's trailing blank is legal and sometimes right, but as often a
  // slip that makes the window unfindable.
  void Titles(const std::string& parameters) {
    std::vector<WindowLevel> levels;
    try {
      levels = Read_Window_Levels(parameters);
    } catch (const std::exception&) {
      return;
    }
    for (std::size_t i = 0; i < levels.size(); ++i) {
      const std::string& title = levels[i].title;
      if (!title.empty() && title.back() == ' ')
        Warn("findwindow level " + std::to_string(i + 1) + " title ends in a blank: \"" + title + "\"");
    }
  }

  // A string that takes its text from the environment is only known at run time.
  void Keys(const std::string& keys) {
    if (keys.find('`') != std::string::npos) return;
    const KeyParseResult parsed = Parse_Key_String(keys);
    if (!parsed.ok) Warn("Invalid key string:  " + parsed.error);
  }

  Engine& engine_;
  std::vector<CheckFinding>& findings_;
  long number_ = 0;
  bool findWindowSeen_ = false;
};

}  // namespace

std::vector<CheckFinding> Check_Script(Host& host, Registry& registry, const std::vector<std::string>& lines) {
  Engine engine(host, registry);
  engine.state.SpeedFactor = Read_Speed_Factor(host);
  std::vector<CheckFinding> findings;
  engine.reportObserver = [&findings](const ReportRecord& report) {
    findings.push_back({report.line + 1, true, report.message});
  };
  for (const std::string& line : lines) engine.TraceWindow.Add(line);
  bool debugOn = true;
  bool succeeded = true;
  Preprocess_Commands(engine, false, debugOn, false, succeeded);

  engine.reportObserver = [](const ReportRecord&) {};  // heard in the pass already
  Warnings warnings(engine, findings);
  for (std::size_t i = 0; i < lines.size(); ++i) warnings.Line(lines[i], static_cast<long>(i) + 1);
  std::stable_sort(findings.begin(), findings.end(),
                   [](const CheckFinding& a, const CheckFinding& b) { return a.line < b.line; });
  return findings;
}

}  // namespace velmora
