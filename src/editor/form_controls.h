// The editor's controls: the identifiers of its controls and of the Velmora
// menu's entries, on the forms' FormControls.
#pragma once

#include "control_state.h"

namespace velmora {

// Control identifiers are part of the product: scripts find the editor's
// controls by them (findwindow's ChildID), and the user guide lists them.
enum class ControlId : int {
  Form = 0,  // the editor window itself (its caption is the title)
  // The file strip at the top.
  VelmoraMenu = 1001,
  DebugFileLabel = 1002,
  DebugCover = 1003,
  CreateDebugButton = 1004,
  ScriptFileLabel = 1005,
  ScriptCover = 1006,
  OpenScriptButton = 1007,
  SaveScriptButton = 1008,
  VersionLabel = 1009,
  // The catalogue.
  AvailableCommandsFrame = 1100,
  CommandList = 1101,
  // The parameter panel.
  ScriptEditorFrame = 1200,
  CommandLineLabel = 1201,
  CommandLine = 1202,
  TimeOutLabel = 1203,
  Minutes = 1204,
  Seconds = 1205,
  MouseLabel = 1206,
  MouseButton0 = 1210,  // L
  MouseButton1 = 1211,  // M
  MouseButton2 = 1212,  // R
  MouseButton3 = 1213,  // N (none)
  DoubleClick = 1214,
  DebugState0 = 1220,  // "on" / "succeeded"
  DebugState1 = 1221,  // "off" / "failed"
  InsertCommandButton = 1230,
  RemoveCommandButton = 1231,
  // The script trace and its execution controls.
  TraceFrame = 1300,
  TraceWindow = 1301,
  TraceControlsFrame = 1310,
  ExecuteNextButton = 1311,
  BreakPointButton = 1312,
  ExecuteButton = 1313,
  // The debug output.
  DebugFrame = 1400,
  DebugWindow = 1401,
};

// The Velmora menu's entries, as command identifiers of the pop-up menu.
enum class MenuId : int {
  HelpContents = 3001,
  HelpOnHelp = 3002,
  About = 3003,
  AssignEnvVar = 3004,
  FastPace = 3005,  // checked while lines run here at the fast pace
  RecordActions = 3006,  // checked while the user's clicks and keys become lines
};

template <>
inline constexpr bool kFormIdentifiers<ControlId> = true;

inline ControlId MouseButton(int index) {
  return static_cast<ControlId>(static_cast<int>(ControlId::MouseButton0) + index);
}
inline ControlId DebugState(int index) {
  return static_cast<ControlId>(static_cast<int>(ControlId::DebugState0) + index);
}

struct FormDeclaration;
// The editor form as designed (editor_layout.h has its table).
const FormDeclaration& Editor_Form();

}  // namespace velmora
