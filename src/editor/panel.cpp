// Whole groups of the form's controls switched at once, and the parameter
// panel's resting state.
#include <initializer_list>
#include <optional>

#include "command_panel.h"
#include "engine.h"
#include "trap.h"

namespace velmora {

namespace {

using C = ControlId;

constexpr char kNotApplicable[] = "Not Applicable";
constexpr char kNoParameters[] = "No Parameters Accepted!";
// The insert button's captions; the overwrite one tells that a double click
// put a script line in the panel.
constexpr char kInsertCaption[] = "Insert Command";
constexpr char kOverwriteCaption[] = "Overwrite Command";

void Set_Enabled(FormControls& controls, std::initializer_list<ControlId> ids, bool enabled) {
  for (ControlId id : ids) controls.SetEnabled(id, enabled);
}

// The option of a group to focus: the one set, else the first usable one.
std::optional<ControlId> Usable_Option(const FormControls& controls, ControlId first, int count) {
  std::optional<ControlId> usable;
  for (int index = count - 1; index >= 0; --index) {
    const auto id = static_cast<ControlId>(static_cast<int>(first) + index);
    if (!controls[id].Enabled || !controls[id].Visible) continue;
    if (controls[id].Checked) return id;
    usable = id;
  }
  return usable;
}

}  // namespace

void CommandPanel::Reset_Panel(bool emptyTexts) {
  for (ControlId label : {C::CommandLineLabel, C::TimeOutLabel}) {
    controls_.SetCaption(label, kNotApplicable);
    controls_.SetToolTip(label, kNoParameters);
    controls_.SetInactive(label, true);
  }
  for (ControlId field : {C::CommandLine, C::Minutes, C::Seconds}) {
    controls_.SetEnabled(field, false);
    controls_.SetInactive(field, true);
    controls_.SetToolTip(field, "");
    if (emptyTexts) controls_.SetCaption(field, "");
  }
  controls_.SetVisible(C::CommandLine, true);
  for (ControlId option : {DebugState(0), DebugState(1)}) {
    controls_.SetVisible(option, false);
    controls_.SetToolTip(option, "");
  }
  for (ControlId hidden :
       {C::MouseLabel, MouseButton(0), MouseButton(1), MouseButton(2), MouseButton(3), C::DoubleClick})
    controls_.SetVisible(hidden, false);
  controls_.SetEnabled(C::InsertCommandButton, false);
}

void CommandPanel::Set_Control_State(const std::string& group, bool enabled) {
  Trap(engine_, true, "Editor.(General).Set_Control_State.TrappableErrors.1", kGoOn, [&] {
    if (group == "Files") {
      Set_Enabled(
          controls_,
          {C::ScriptFileLabel, C::OpenScriptButton, C::SaveScriptButton, C::CreateDebugButton, C::DebugFileLabel},
          enabled);
    } else if (group == "TraceControls") {
      Set_Enabled(controls_, {C::TraceControlsFrame, C::ExecuteNextButton, C::BreakPointButton, C::ExecuteButton},
                  enabled);
    } else if (group == "DisableCommands" || group == "EnableCommands") {
      Set_Enabled(controls_, {C::ScriptEditorFrame, C::RemoveCommandButton, C::AvailableCommandsFrame, C::CommandList},
                  group == "EnableCommands");
      // The panel is reset: no catalogue entry may stay highlighted as if chosen.
      commandList_.Select(ListModel::kNoSelection);
      currentCode_ = kNoEntry;
      Reset_Panel(false);
    } else if (group == "EmptyCommands") {
      commandList_.Select(ListModel::kNoSelection);
      Reset_Panel(true);
      controls_.SetChecked(DebugState(0), true);
      controls_.SetChecked(DebugState(1), false);
      for (int index = 0; index < 4; ++index) controls_.SetChecked(MouseButton(index), false);
      controls_.SetChecked(C::DoubleClick, false);
    }
  });
}

// After a removal the user goes on typing where the panel expects input.
void CommandPanel::Focus_First_Enabled_Field() {
  const auto usable = [&](ControlId id) { return controls_[id].Enabled && controls_[id].Visible; };
  if (usable(C::CommandLine)) return controls_.SetFocus(C::CommandLine);
  for (ControlId first : {DebugState(0), MouseButton(0)}) {
    const auto option = Usable_Option(controls_, first, first == DebugState(0) ? 2 : 4);
    if (option) return controls_.SetFocus(*option);
  }
  for (ControlId field : {C::Minutes, C::Seconds})
    if (usable(field)) return controls_.SetFocus(field);
}

void CommandPanel::Set_Overwrite_Mode(bool on) {
  overwriting_ = on;
  controls_.SetCaption(C::InsertCommandButton, on ? kOverwriteCaption : kInsertCaption);
  controls_.SetToolTip(C::InsertCommandButton,
                       on ? "This will OVERWRITE the command that is hilited" : "Insert this command in the Script");
}

}  // namespace velmora
