// Turning the filled panel into a script line and placing it in the script;
// removing a line.
#include <algorithm>
#include <iterator>

#include "catalogue_table.h"
#include "command_codes.h"
#include "command_panel.h"
#include "editor_activity.h"
#include "engine.h"
#include "line_composer.h"
#include "script_text.h"
#include "text.h"
#include "trap.h"

namespace velmora {

namespace {

using C = ControlId;

constexpr char kQuote[] = "\"";

// After these the catalogue moves on to the entry a script usually needs next
// (a window after a program, keys after a window, the block's next keyword).
bool Moves_On(std::uint8_t code) {
  return code == kRunCommand || code == kFindWindowCommand || code == kIfCommand || code == kWhileCommand ||
         code == kRepeatCommand;
}

// The lines that are a keyword, or a keyword before a condition, by code.
const char* Keyword_Of(std::uint8_t code) {
  static constexpr const char* kKeywords[] = {"", "", "", "",     "If:  ", "While:  ", "Until:  ", "",
                                              "", "", "", "Quit", "Else",  "EndIf",    "EndWhile", "Repeat"};
  return code < std::size(kKeywords) ? kKeywords[code] : "";
}

}  // namespace

std::string LineComposer::Compose_Line() {
  const auto text = [&](ControlId id) { return Trim(controls_[id].Caption); };
  const auto button = [&](const char* letters) {
    for (int index = 0; index < 3; ++index)
      if (controls_[MouseButton(index)].Checked) return std::string(1, letters[index]);
    return std::string(1, letters[0]);
  };
  const std::string click = controls_[C::DoubleClick].Checked ? "d" : "s";
  const bool first = controls_[DebugState(0)].Checked;
  const std::uint8_t code = panel_.Current_Code();
  switch (code) {
    case kRunCommand:
      return "Run:  " + (kQuote + text(C::CommandLine)) + kQuote;
    case kSendKeysCommand:
      return "SendKeys:  " + (kQuote + text(C::CommandLine)) + kQuote;
    case kFindWindowCommand:
    case kWaitCommand: {
      const std::string time = text(C::Minutes) + "." + text(C::Seconds);
      if (code == kWaitCommand) return "Wait:  " + time;
      return "FindWindow:  " + text(C::CommandLine) + ", " + time;
    }
    case kIfCommand:
    case kWhileCommand:
    case kUntilCommand:
      return Keyword_Of(code) + std::string(first ? "succeeded" : "failed");
    case kUseMouseCommand: {
      const std::string kind = controls_[MouseButton(3)].Checked ? "nc" : click + button("lmr");
      return "UseMouse: " + kind + ", " + text(C::Minutes) + ", " + text(C::Seconds);
    }
    case kCommentLine: {
      std::string comment = text(C::CommandLine);
      if (!Starts_With(comment, "#")) {
        comment = "# " + comment;
        controls_.SetCaption(C::CommandLine, comment);
      }
      return comment;
    }
    case kDebugCommand:
      return first ? "Debug: on" : "Debug: off";
    case kTestCommand:
      return "Test:  " + (kQuote + ("`" + text(C::Minutes) + "`") + kQuote) + " = " +
             (kQuote + text(C::Seconds) + kQuote);
    case kSendButtonsCommand:
      return "SendButtons: " + click + button("lmr");
    default:
      return Keyword_Of(code);
  }
}

long Insert_Before_Highlighted(ListModel& script, const std::string& line) {
  const long highlighted = script.Selected();
  if (highlighted < 0 || highlighted >= static_cast<long>(script.Count())) {
    script.Add(line);
    return static_cast<long>(script.Count()) - 1;
  }
  script.Insert(static_cast<std::size_t>(highlighted), line);
  return highlighted;
}

// Overwriting replaces the highlighted line and keeps its breakpoint; else the
// line goes in as Insert_Before_Highlighted puts it.
void LineComposer::Place_Line(const std::string& line) {
  ListModel& trace = engine_.TraceWindow;
  const long highlighted = trace.Selected();
  if (!panel_.Overwriting() || highlighted < 0 || highlighted >= static_cast<long>(trace.Count())) {
    Insert_Before_Highlighted(trace, line);
    return;
  }
  const auto index = static_cast<std::size_t>(highlighted);
  const bool marked = Starts_With(Trim(trace.Item(highlighted)), kBreakpointMark);
  trace.Set(index, marked ? std::string(kBreakpointMark) + " " + line : line);
  trace.Select(highlighted);
}

void LineComposer::InsertCommandButton_Click() {
  Trap(engine_, true, "Editor.InsertCommandButton.Click.TrappableErrors.1", kGoOn, [&] {
    const std::uint8_t code = panel_.Current_Code();
    if (code > kSendButtonsCommand) return;  // no command chosen
    Place_Line(Compose_Line());
    // One overwrite per double click: the next insertion inserts again.
    if (panel_.Overwriting()) panel_.Set_Overwrite_Mode(false);
    activity_.Set_Script_Changed(true);
    controls_.SetEnabled(C::SaveScriptButton, true);
    panel_.Set_Control_State("EmptyCommands");
    panel_.Set_Control_State("EnableCommands");
    if (Moves_On(code) && panel_.Chosen_Position() != CommandPanel::kNoEntry) {
      panel_.CommandList_Click(panel_.Chosen_Position() + 1);
    } else {
      controls_.SetFocus(C::CommandList);  // the next command is chosen there
    }
  });
}

// The highlight stays at the same place (the line that followed the removed
// one), or on the last line when the last was removed.
void LineComposer::RemoveCommandButton_Click() {
  Trap(engine_, true, "Editor.RemoveCommandButton.Click.TrappableErrors.1", kGoOn, [&] {
    ListModel& trace = engine_.TraceWindow;
    const long highlighted = trace.Selected();
    // Nothing to remove, or the heading, which the editor writes itself.
    if (highlighted <= 0 || highlighted >= static_cast<long>(trace.Count())) return;
    trace.Remove(static_cast<std::size_t>(highlighted));
    if (trace.Count() == 1) trace.Add("");  // a line below the heading to insert before
    trace.Select(std::min(highlighted, static_cast<long>(trace.Count()) - 1));
    activity_.Set_Script_Changed(true);
    controls_.SetEnabled(C::SaveScriptButton, true);
    panel_.Focus_First_Enabled_Field();
  });
}

// The heading line is not a place to run from: a click on it highlights the
// line below, made empty when there is none. A click ends overwrite mode.
void LineComposer::TraceWindow_Click() {
  Trap(engine_, true, "Editor.TraceWindow.Click.TrappableErrors.1", kGoOn, [&] {
    ListModel& trace = engine_.TraceWindow;
    if (trace.Selected() == 0) {
      if (trace.Count() == 1) trace.Add("");
      trace.Select(1);
    }
    panel_.Set_Overwrite_Mode(false);
  });
}

}  // namespace velmora
