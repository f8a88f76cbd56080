// A form's controls as data: the state the form's procedures give each
// control (caption or text, tooltip, enabled, visible, checked, font, colour,
// place), under the form's own identifiers. The Win32 view shows this state
// and reports the user's input back; tests read it directly.
#pragma once

#include <map>
#include <string>

#include "control_key.h"

namespace velmora {

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
  virtual void OnControlChanged(ControlKey id, ControlAspect aspect) = 0;
  virtual void OnFocusRequested(ControlKey id) = 0;
};

// The state of every control of the form. A setter that changes nothing tells
// no one; a change is passed to the observer (the view). Another form's
// identifier is refused (std::logic_error), not taken for one of this form.
struct FormDeclaration;

class FormControls {
 public:
  // The form's title, designed place and controls, as its declaration gives them.
  explicit FormControls(const FormDeclaration& form);

  const ControlState& operator[](ControlKey id) const;
  ControlKey Form() const { return form_; }
  ControlKey Focused() const { return focused_; }

  void SetCaption(ControlKey id, const std::string& text);
  void SetToolTip(ControlKey id, const std::string& text);
  void SetEnabled(ControlKey id, bool enabled);
  void SetVisible(ControlKey id, bool visible);
  void SetChecked(ControlKey id, bool checked);
  void SetInactive(ControlKey id, bool inactive);
  void SetFont(ControlKey id, const FontSpec& font);
  void SetRect(ControlKey id, const TwipsRect& rect);
  void SetCaret(ControlKey id, long caret);
  void SetFocus(ControlKey id);

  // Input from the user, already shown by the view: the state follows
  // without telling the view again.
  void TextTyped(ControlKey id, const std::string& text, long caret);
  void FocusMoved(ControlKey id) {
    Check_Form(id);
    focused_ = id;
  }

  void SetObserver(ControlObserver* observer) { observer_ = observer; }

 private:
  ControlState& State(ControlKey id);
  void Check_Form(ControlKey id) const;
  int Option_Group(int id) const;  // 0 for none
  void Changed(ControlKey id, ControlAspect aspect);
  // Sets one field and tells the observer, unless it already held the value.
  template <class T>
  void Assign(ControlKey id, T ControlState::*field, const T& value, ControlAspect aspect) {
    ControlState& state = State(id);
    if (state.*field == value) return;
    state.*field = value;
    Changed(id, aspect);
  }

  std::map<int, ControlState> states_;
  std::map<int, int> optionGroups_;  // option button -> its group; setting one clears the others
  ControlKey form_;
  ControlKey focused_;
  ControlObserver* observer_ = nullptr;
};

}  // namespace velmora
