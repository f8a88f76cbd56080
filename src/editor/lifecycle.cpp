// The editor's life: its own loading after the engine's start-up, the layout
// when its size changes, and what it keeps and closes when it is closed.
#include <string>

#include "careful_io.h"
#include "debug_log.h"
#include "editor_form.h"
#include "editor_layout.h"
#include "engine.h"
#include "form_placement.h"
#include "numeric.h"
#include "reg_settings.h"
#include "text.h"
#include "trap.h"
#include "velmora_version.h"

namespace velmora {

namespace {

constexpr const char* kSection = "Editor";
constexpr const char* kPaceKey = "Pace";

}  // namespace

EditorForm::EditorForm(Engine& engine, FormControls& controls, FormWindow& window, FileDialogs& dialogs,
                       CRegSettings& settings)
    : engine_(engine),
      controls_(controls),
      window_(window),
      settings_(settings),
      activity_(window),
      panel_(engine, controls),
      composer_(engine, controls, panel_, activity_),
      files_(engine, controls, window, dialogs, settings, panel_, activity_),
      runner_(engine, controls, window, panel_, activity_),
      picker_(engine, controls, panel_, activity_, [this] { files_.Browse_For_Program(); }),
      recorder_(engine, controls, panel_, activity_) {}

void EditorForm::Button_Clicked(ControlId button) {
  switch (button) {
    case ControlId::OpenScriptButton:
      return files_.Open_Script_File();
    case ControlId::SaveScriptButton:
      return files_.Save_Script_File();
    case ControlId::CreateDebugButton:
      return files_.Save_Debug_File();
    case ControlId::InsertCommandButton:
      return composer_.InsertCommandButton_Click();
    case ControlId::RemoveCommandButton:
      return composer_.RemoveCommandButton_Click();
    case ControlId::ExecuteButton:
      return runner_.ExecuteButton_Click();
    case ControlId::ExecuteNextButton:
      return runner_.ExecuteNextButton_Click();
    case ControlId::BreakPointButton:
      return runner_.BreakPointButton_Click();
    default:
      return;
  }
}

void EditorForm::Field_Entered(ControlId field, bool byKeyboard) {
  if (field == ControlId::CommandLine) picker_.CommandLine_GotFocus(byKeyboard);
  if (field == ControlId::Minutes) picker_.Minutes_GotFocus(byKeyboard);
}

bool EditorForm::Fast_Pace() const { return engine_.state.RunPace == Pace::Fast; }

void EditorForm::Toggle_Fast_Pace() {
  const bool fast = !Fast_Pace();
  engine_.state.RunPace = fast ? Pace::Fast : Pace::Default;
  settings_.SaveSetting(kSection, kPaceKey, fast ? "fast" : "default");
  Log_Always(engine_, true,
             fast ? "Info: Lines run here at the fast pace: no fixed pauses; each command waits until its window is "
                    "ready."
                  : "Info: Lines run here at the default pace, with its fixed pauses.");
}

bool EditorForm::May_Close_Now() {
  if (activity_.May_Close_Now()) return true;
  if (activity_.Running()) runner_.Request_Halt();
  return false;
}

void EditorForm::Form_Load_Interactive() {
  controls_.SetCaption(ControlId::VersionLabel, "Version:  " + std::to_string(VELMORA_VERSION_MAJOR) + "." +
                                                    std::to_string(VELMORA_VERSION_MINOR) + "." +
                                                    std::to_string(VELMORA_VERSION_PATCH));
  const std::string program = engine_.host.ProgramPath();
  const auto slash = program.find_last_of('\\');
  helpFile_ = (slash == std::string::npos ? std::string() : program.substr(0, slash)) + "\\Velmora.chm";
  engine_.host.DoEvents();

  activity_.Set_Script_Changed(false);
  controls_.SetEnabled(ControlId::SaveScriptButton, false);
  panel_.Set_Control_State("DisableCommands");
  panel_.Set_Control_State("TraceControls", false);
  for (ControlId id : {ControlId::TraceFrame, ControlId::TraceWindow, ControlId::DebugFrame, ControlId::DebugWindow})
    controls_.SetEnabled(id, false);
  panel_.Load_Commands(1);
  Restore_Form_Placement(settings_, kSection, window_);
  // Read back with or without its last letter, as the settings store gives it.
  if (Lower(settings_.GetSetting(kSection, kPaceKey, "")).rfind("fas", 0) == 0) engine_.state.RunPace = Pace::Fast;
  files_.Load_At_Start();
}

void EditorForm::Form_Resize() {
  if (window_.State() == WindowState::Minimized) return;
  TwipsRect form = window_.Placement();
  const bool maximized = window_.State() == WindowState::Maximized;
  bool snapped = false;
  if (form.Width < kMinimumFormWidth && (!maximized || window_.ScreenWidth() > kMinimumFormWidth - 1)) {
    form.Width = kMinimumFormWidth;
    snapped = true;
  }
  if (form.Height < kMinimumFormHeight && (!maximized || window_.ScreenHeight() > kMinimumFormHeight - 1)) {
    form.Height = kMinimumFormHeight;
    snapped = true;
  }
  if (snapped) window_.SetPlacement(form);

  const auto width_of = [&](ControlId id, long width) {
    TwipsRect rect = controls_[id].Rect;
    rect.Width = width;
    controls_.SetRect(id, rect);
  };
  width_of(ControlId::ScriptFileLabel, form.Width - 4065);
  width_of(ControlId::ScriptCover, controls_[ControlId::ScriptFileLabel].Rect.Width);
  width_of(ControlId::TraceFrame, form.Width - 4210);
  width_of(ControlId::TraceWindow, controls_[ControlId::TraceFrame].Rect.Width - 80);
  width_of(ControlId::DebugFrame, form.Width - 175);
  width_of(ControlId::DebugWindow, controls_[ControlId::DebugFrame].Rect.Width - 80);
  Share_Height(form.Height);
}

// Down the right-hand side: the script list and its buttons over the debug
// output. Extra height beyond the designed one is shared between the two
// lists; below it only the debug output gives way.
void EditorForm::Share_Height(long formHeight) {
  const long more = Script_Share_Of_Height(formHeight);
  const auto place = [&](ControlId id, long top, long height) {
    TwipsRect rect = controls_[id].Rect;
    rect.Top = top;
    rect.Height = height;
    controls_.SetRect(id, rect);
  };
  const auto designed = [](ControlId id) { return Find_Declaration(id)->Rect; };
  for (const ControlId list : {ControlId::TraceFrame, ControlId::TraceWindow})
    place(list, designed(list).Top, designed(list).Height + more);
  for (const ControlId below : {ControlId::TraceControlsFrame, ControlId::DebugFrame})
    place(below, designed(below).Top + more, designed(below).Height);
  place(ControlId::DebugFrame, controls_[ControlId::DebugFrame].Rect.Top, formHeight - 6995 - more);
  place(ControlId::DebugWindow, designed(ControlId::DebugWindow).Top,
        controls_[ControlId::DebugFrame].Rect.Height - 280);
}

// A changed script is settled first: the question's Cancel, or a cancelled
// save, keeps the editor open with the script as it is.
bool EditorForm::Form_QueryUnload() {
  recorder_.Stop();
  if (!files_.Script_Changes_May_Go()) return false;
  engine_.host.Beep();
  Save_Form_Placement(settings_, kSection, window_);
  Log_Always(engine_, true, "Info: Editor shut down!" + Date_Time_Stamp(engine_));
  files_.Close_Files();
  return true;
}

}  // namespace velmora
