// The editor's controls as data: every control's fixed identifier, and the
// state the form procedures give it (caption or text, tooltip, enabled,
// visible, checked, font, colour, place). The Win32 view shows this state and
// reports the user's input back; tests read it directly.
#pragma once

#include <map>
#include <string>
#include <vector>

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
  // The batch editor (a form of its own; its window is Form there).
  BatchFileLabel = 2001,
  OpenBatchButton = 2002,
  SaveBatchButton = 2003,
  BatchWindow = 2004,
  BatchFrame = 2005,
  EnvVarNameLabel = 2006,
  EnvVarValue = 2007,
  UpdateEnvVarButton = 2008,
};

// The Velmora menu's entries, as command identifiers of the pop-up menu.
enum class MenuId : int {
  HelpContents = 3001,
  HelpOnHelp = 3002,
  About = 3003,
  AssignEnvVar = 3004,
};

inline ControlId MouseButton(int index) {
  return static_cast<ControlId>(static_cast<int>(ControlId::MouseButton0) + index);
}
inline ControlId DebugState(int index) {
  return static_cast<ControlId>(static_cast<int>(ControlId::DebugState0) + index);
}

struct FontSpec {
  std::string Name = "MS Sans Serif";
  int Size = 8;  // points
  bool Bold = false;
  bool operator==(const FontSpec&) const = default;
};

// Places and sizes in twips (1/1440 inch), relative to the containing frame
// (or to the form's client area for a control outside any frame).
struct TwipsRect {
  long Left = 0;
  long Top = 0;
  long Width = 0;
  long Height = 0;
  bool operator==(const TwipsRect&) const = default;
};

struct ControlState {
  std::string Caption;  // a label's or button's caption, a text box's text
  std::string ToolTip;
  bool Enabled = true;
  bool Visible = true;
  bool Checked = false;   // option buttons and check boxes
  bool Inactive = false;  // drawn in the inactive colour (labels and text boxes of unused fields)
  FontSpec Font;
  TwipsRect Rect;
  long Caret = 0;  // text boxes: the caret's position (characters before it)
};

// What changed in a control, for the view to show.
enum class ControlAspect { Caption, ToolTip, Enabled, Visible, Checked, Inactive, Font, Rect, Caret };

class ControlObserver {
 public:
  virtual ~ControlObserver() = default;
  virtual void OnControlChanged(ControlId id, ControlAspect aspect) = 0;
  virtual void OnFocusRequested(ControlId id) = 0;
};

// The state of every control of the form. A setter that changes nothing tells
// no one; a change is passed to the observer (the view).
struct ControlDeclaration;

class FormControls {
 public:
  // The editor's controls.
  FormControls();
  // Another form's: its title, designed place and control table.
  FormControls(const std::string& title, const TwipsRect& designed, const std::vector<ControlDeclaration>& table);

  const ControlState& operator[](ControlId id) const;
  ControlId Focused() const { return focused_; }

  void SetCaption(ControlId id, const std::string& text);
  void SetToolTip(ControlId id, const std::string& text);
  void SetEnabled(ControlId id, bool enabled);
  void SetVisible(ControlId id, bool visible);
  void SetChecked(ControlId id, bool checked);
  void SetInactive(ControlId id, bool inactive);
  void SetFont(ControlId id, const FontSpec& font);
  void SetRect(ControlId id, const TwipsRect& rect);
  void SetCaret(ControlId id, long caret);
  void SetFocus(ControlId id);

  // Input from the user, already shown by the view: the state follows
  // without telling the view again.
  void TextTyped(ControlId id, const std::string& text, long caret);
  void FocusMoved(ControlId id) { focused_ = id; }

  void SetObserver(ControlObserver* observer) { observer_ = observer; }

 private:
  ControlState& State(ControlId id);
  void Changed(ControlId id, ControlAspect aspect);
  // Sets one field and tells the observer, unless it already held the value.
  template <class T>
  void Assign(ControlId id, T ControlState::*field, const T& value, ControlAspect aspect) {
    ControlState& state = State(id);
    if (state.*field == value) return;
    state.*field = value;
    Changed(id, aspect);
  }

  std::map<ControlId, ControlState> states_;
  ControlId focused_ = ControlId::Form;
  ControlObserver* observer_ = nullptr;
};

}  // namespace velmora
