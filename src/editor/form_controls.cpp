#include "form_controls.h"

#include "editor_layout.h"

namespace velmora {

namespace {

// Option buttons of one group: setting one clears the others, as on the form.
bool Same_Option_Group(ControlId a, ControlId b) {
  const auto in = [](ControlId id, ControlId first, int count) {
    return static_cast<int>(id) >= static_cast<int>(first) && static_cast<int>(id) < static_cast<int>(first) + count;
  };
  return (in(a, ControlId::MouseButton0, 4) && in(b, ControlId::MouseButton0, 4)) ||
         (in(a, ControlId::DebugState0, 2) && in(b, ControlId::DebugState0, 2));
}

}  // namespace

FormControls::FormControls()
    : FormControls("Velmora - IDE", {0, 0, kDesignedFormWidth, kDesignedFormHeight}, Editor_Controls()) {}

FormControls::FormControls(const std::string& title, const TwipsRect& designed,
                           const std::vector<ControlDeclaration>& table) {
  states_[ControlId::Form].Caption = title;
  states_[ControlId::Form].Rect = designed;
  for (const ControlDeclaration& declaration : table) {
    ControlState& state = states_[declaration.Id];
    state.Caption = declaration.Caption;
    state.ToolTip = declaration.ToolTip;
    state.Font = declaration.Font;
    state.Rect = declaration.Rect;
  }
}

const ControlState& FormControls::operator[](ControlId id) const { return states_.at(id); }

ControlState& FormControls::State(ControlId id) { return states_.at(id); }

void FormControls::Changed(ControlId id, ControlAspect aspect) {
  if (observer_) observer_->OnControlChanged(id, aspect);
}

void FormControls::SetCaption(ControlId id, const std::string& text) {
  ControlState& state = State(id);
  if (state.Caption == text) return;
  state.Caption = text;
  if (state.Caret > static_cast<long>(text.size())) state.Caret = static_cast<long>(text.size());
  Changed(id, ControlAspect::Caption);
}

void FormControls::SetToolTip(ControlId id, const std::string& text) {
  Assign(id, &ControlState::ToolTip, text, ControlAspect::ToolTip);
}

void FormControls::SetEnabled(ControlId id, bool enabled) {
  Assign(id, &ControlState::Enabled, enabled, ControlAspect::Enabled);
}

void FormControls::SetVisible(ControlId id, bool visible) {
  Assign(id, &ControlState::Visible, visible, ControlAspect::Visible);
}

void FormControls::SetChecked(ControlId id, bool checked) {
  if (checked) {
    for (auto& [other, state] : states_)
      if (other != id && state.Checked && Same_Option_Group(id, other)) {
        state.Checked = false;
        Changed(other, ControlAspect::Checked);
      }
  }
  Assign(id, &ControlState::Checked, checked, ControlAspect::Checked);
}

void FormControls::SetInactive(ControlId id, bool inactive) {
  Assign(id, &ControlState::Inactive, inactive, ControlAspect::Inactive);
}

void FormControls::SetFont(ControlId id, const FontSpec& font) {
  Assign(id, &ControlState::Font, font, ControlAspect::Font);
}

void FormControls::SetRect(ControlId id, const TwipsRect& rect) {
  Assign(id, &ControlState::Rect, rect, ControlAspect::Rect);
}

void FormControls::SetCaret(ControlId id, long caret) { Assign(id, &ControlState::Caret, caret, ControlAspect::Caret); }

void FormControls::SetFocus(ControlId id) {
  focused_ = id;
  if (observer_) observer_->OnFocusRequested(id);
}

void FormControls::TextTyped(ControlId id, const std::string& text, long caret) {
  State(id).Caption = text;
  State(id).Caret = caret;
}

}  // namespace velmora
