#include "script_check.h"

#include <algorithm>
#include <cstring>

#include "engine.h"
#include "environment.h"
#include "findwindow_place.h"
#include "key_notation.h"
#include "parser.h"
#include "preprocessor.h"
#include "script_text.h"
#include "session.h"

namespace velmora {

namespace {

// What the parser accepts but a run will not get past or should not meet.
class RunChecks {
 public:
  RunChecks(Engine& engine, std::vector<CheckFinding>& findings) : engine_(engine), findings_(findings) {}

  void Line(const std::string& text, long number) {
    ParsedCommand parsed;
    const bool known = Parse_Command(engine_, false, text, engine_.state.SpeedFactor, parsed, kNoEditorLine);
    number_ = number;
    if (parsed.ParseError && parsed.CommandWord == "|findwindow|") return Place_FindWindow_Fault(text);
    if (!known) return;
    if (parsed.ParseError) {
      // A run only logs a bad debug value; every other fault is reported already.
      if (parsed.CommandCode == kDebugCommand) Warn(std::string(kDebugAssumedOn).substr(std::strlen("Info: ")));
      return;
    }
    switch (parsed.CommandCode) {
      case kFindWindowCommand:
        findWindowSeen_ = true;
        return;
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
  void Add(bool error, std::string text) { findings_.push_back({number_, error, std::move(text)}); }
  void Warn(std::string text) { Add(false, std::move(text)); }

  void Target(const char* command, const char* runError) {
    if (findWindowSeen_) return;
    Warn(std::string(command) + " before any findwindow line: the run ends here with \"" + runError + "\"");
  }

  // The run's complaint about a findwindow line names no level or field:
  // the first report on the line is told which.
  void Place_FindWindow_Fault(const std::string& text) {
    const auto colon = text.find(':');
    const std::string place = FindWindow_Fault_Place(Trim_Blanks(std::string_view(text).substr(colon + 1)),
                                                     engine_.state.SpeedFactor);
    for (CheckFinding& finding : findings_) {
      if (finding.line != number_ || !finding.error) continue;
      finding.text += " (" + place + ")";
      return;
    }
  }

  // A run refuses a malformed key string and types nothing. A string that
  // takes its text from the environment is only known at run time.
  void Keys(const std::string& keys) {
    const auto expanded = Expanded_Without_Values(keys);
    if (!expanded) return;
    const KeyParseResult parsed = Parse_Key_String(*expanded);
    if (!parsed.ok) Add(true, Key_String_Complaint(parsed));
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
  engine.reports.observer = [&findings](const ReportRecord& report) {
    findings.push_back({report.line + 1, true, report.message});
  };
  for (const std::string& line : lines) engine.TraceWindow.Add(line);
  bool debugOn = true;
  bool succeeded = true;
  Preprocess_Commands(engine, false, debugOn, false, succeeded);

  engine.reports.observer = [](const ReportRecord&) {};  // heard in the pass already
  RunChecks checks(engine, findings);
  for (std::size_t i = 0; i < lines.size(); ++i) checks.Line(lines[i], static_cast<long>(i) + 1);
  std::stable_sort(findings.begin(), findings.end(),
                   [](const CheckFinding& a, const CheckFinding& b) { return a.line < b.line; });
  return findings;
}

}  // namespace velmora
