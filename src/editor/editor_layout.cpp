#include "editor_layout.h"

namespace velmora {

namespace {

constexpr const char* kNotApplicable = "Not Applicable";
constexpr const char* kNoParameters = "No Parameters Accepted!";
const FontSpec kFormFont{};
const FontSpec kBoldFont{"MS Sans Serif", 8, true};
const FontSpec kTraceFont{"Lucida Console", 9, false};
const FontSpec kDebugFont{"Courier New", 9, false};
const FontSpec kExecuteNextFont{"MS Sans Serif", 12, false};

using K = ControlKind;
using C = ControlId;

// Widths that follow the form's width are given here at the designed size;
// Form_Resize sets them from the form's size.
const std::vector<ControlDeclaration> kControls = {
    // The file strip.
    {C::CreateDebugButton, "CreateDebugButton", K::Button, C::Form, {60, 60, 1900, 360}, "New &Debug File",
     "Start a new debug file", kFormFont},
    {C::VelmoraMenu, "VelmoraMenu", K::Button, C::Form, {2040, 60, 1900, 360}, "&Velmora", "Help, about, batch files",
     kFormFont},
    {C::OpenScriptButton, "OpenScriptButton", K::Button, C::Form, {4100, 60, 1900, 360}, "&Open Script",
     "Open a script file", kFormFont},
    {C::SaveScriptButton, "SaveScriptButton", K::Button, C::Form, {6080, 60, 1900, 360}, "&Save Script",
     "Save the script", kFormFont},
    {C::DebugCover, "DebugCover", K::Cover, C::Form, {20, 450, 4000, 260}, "", "", kFormFont},
    {C::DebugFileLabel, "DebugFileLabel", K::Label, C::Form, {0, 480, 4040, 200}, "Debug: ",
     "Hold the right mouse button down to see the whole name", kFormFont},
    {C::ScriptCover, "ScriptCover", K::Cover, C::Form, {4040, 450, 5535, 260}, "", "", kFormFont},
    {C::ScriptFileLabel, "ScriptFileLabel", K::Label, C::Form, {4040, 480, 5535, 200}, "Script: ",
     "Hold the right mouse button down to see the whole name", kFormFont},
    // The catalogue.
    {C::AvailableCommandsFrame, "AvailableCommandsFrame", K::Frame, C::Form, {60, 780, 3920, 2700},
     "Automation Commands", "", kBoldFont},
    {C::CommandList, "CommandList", K::ListBox, C::AvailableCommandsFrame, {80, 240, 3760, 2380}, "",
     "Automation Commands you may use in your script", kFormFont},
    // The parameter panel.
    {C::ScriptEditorFrame, "ScriptEditorFrame", K::Frame, C::Form, {60, 3540, 3920, 2700}, "Command Parameters", "",
     kBoldFont},
    {C::CommandLineLabel, "CommandLineLabel", K::Label, C::ScriptEditorFrame, {120, 240, 3680, 200}, kNotApplicable,
     kNoParameters, kFormFont},
    {C::CommandLine, "CommandLine", K::TextBox, C::ScriptEditorFrame, {120, 460, 3680, 300}, "", "", kFormFont},
    {C::TimeOutLabel, "TimeOutLabel", K::Label, C::ScriptEditorFrame, {120, 820, 3680, 200}, kNotApplicable,
     kNoParameters, kFormFont},
    {C::Minutes, "Minutes", K::TextBox, C::ScriptEditorFrame, {120, 1040, 1200, 300}, "", "", kFormFont},
    {C::Seconds, "Seconds", K::TextBox, C::ScriptEditorFrame, {1500, 1040, 1200, 300}, "", "", kFormFont},
    {C::MouseLabel, "MouseLabel", K::Label, C::ScriptEditorFrame, {150, 1420, 1900, 200}, "", "", kFormFont},
    {C::MouseButton0, "MouseButton(0)", K::OptionButton, C::ScriptEditorFrame, {120, 1620, 400, 240}, "", "",
     kFormFont, true},
    {C::MouseButton1, "MouseButton(1)", K::OptionButton, C::ScriptEditorFrame, {560, 1620, 400, 240}, "", "",
     kFormFont},
    {C::MouseButton2, "MouseButton(2)", K::OptionButton, C::ScriptEditorFrame, {1000, 1620, 400, 240}, "", "",
     kFormFont},
    {C::MouseButton3, "MouseButton(3)", K::OptionButton, C::ScriptEditorFrame, {1440, 1620, 400, 240}, "", "",
     kFormFont},
    {C::DoubleClick, "DoubleClick", K::CheckBox, C::ScriptEditorFrame, {2040, 1620, 1700, 240}, "Double C&lick", "",
     kFormFont},
    // The first choice has the long captions ("Until: succeeded"), the second only ": failed" or "Debug: off".
    {C::DebugState0, "DebugState(0)", K::OptionButton, C::ScriptEditorFrame, {120, 1440, 2100, 300}, "", "",
     kBoldFont, true},
    {C::DebugState1, "DebugState(1)", K::OptionButton, C::ScriptEditorFrame, {2260, 1440, 1520, 300}, "", "",
     kBoldFont},
    {C::InsertCommandButton, "InsertCommandButton", K::Button, C::ScriptEditorFrame, {120, 2180, 1760, 380},
     "Insert Command", "Insert this command in the Script", kFormFont},
    {C::RemoveCommandButton, "RemoveCommandButton", K::Button, C::ScriptEditorFrame, {2040, 2180, 1760, 380},
     "&Remove Command", "DELETES the hilited command!", kFormFont},
    {C::VersionLabel, "VersionLabel", K::Label, C::Form, {120, 6290, 3800, 200}, "", "", kFormFont},
    // The script trace and its execution controls.
    {C::TraceFrame, "TraceFrame", K::Frame, C::Form, {4080, 780, 5390, 4880}, "Script", "", kBoldFont},
    {C::TraceWindow, "TraceWindow", K::ListBox, C::TraceFrame, {40, 220, 5310, 4600}, "", "", kTraceFont},
    {C::TraceControlsFrame, "TraceControlsFrame", K::Frame, C::Form, {4080, 5680, 5390, 820}, "", "", kFormFont},
    {C::ExecuteNextButton, "ExecuteNextButton", K::Button, C::TraceControlsFrame, {60, 150, 3300, 620},
     " Execute Currently Selected Command", "Execute the hilited command", kExecuteNextFont},
    {C::BreakPointButton, "BreakPointButton", K::Button, C::TraceControlsFrame, {3420, 150, 1000, 620}, "Set Break",
     "Set a break point at the hitlited location", kFormFont},
    {C::ExecuteButton, "ExecuteButton", K::Button, C::TraceControlsFrame, {4480, 150, 850, 620}, "E&xecute",
     "Execute the script from the hilited command", kFormFont},
    // The debug output.
    {C::DebugFrame, "DebugFrame", K::Frame, C::Form, {40, 6530, 9425, 2005}, "Debug Output", "", kBoldFont},
    {C::DebugWindow, "DebugWindow", K::ListBox, C::DebugFrame, {40, 220, 9345, 1725}, "", "", kDebugFont},
};

#define VELMORA_CONTROL_HELP(id, page, title, text) {ControlId::id, page, title, text},
constexpr ControlHelp kHelp[] = {
#include "control_help_table.inc"
};
#undef VELMORA_CONTROL_HELP

const FormDeclaration kForm{
    C::Form, "Velmora - IDE", {0, 0, kDesignedFormWidth, kDesignedFormHeight}, kControls, kHelp, "editor"};

}  // namespace

const FormDeclaration& Editor_Form() { return kForm; }

const std::vector<ControlDeclaration>& Editor_Controls() { return kControls; }

const ControlDeclaration* Find_Declaration(ControlId id) { return Find_Declaration(kForm, id); }

}  // namespace velmora
