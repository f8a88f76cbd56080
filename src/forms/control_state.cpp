#include "control_state.h"

#include "form_declaration.h"

namespace velmora {

FormControls::FormControls(const FormDeclaration& form) : form_(form.Form), focused_(form.Form) {
  states_[form_.Value()].Caption = form.Title;
  states_[form_.Value()].Rect = form.Designed;
  int group = 0;
  for (const ControlDeclaration& declaration : form.Controls) {
    Check_Form(declaration.Id);
    ControlState& state = states_[declaration.Id.Value()];
    state.Caption = declaration.Caption;
    state.ToolTip = declaration.ToolTip;
    state.Font = declaration.Font;
    state.Rect = declaration.Rect;
    if (declaration.Kind != ControlKind::OptionButton) continue;
    if (declaration.StartsGroup) ++group;
    optionGroups_[declaration.Id.Value()] = group;
  }
}

const ControlState& FormControls::operator[](ControlKey id) const {
  Check_Form(id);
  return states_.at(id.Value());
}

ControlState& FormControls::State(ControlKey id) {
  Check_Form(id);
  return states_.at(id.Value());
}

void FormControls::Check_Form(ControlKey id) const {
  if (!id.Same_Form(form_)) throw std::logic_error("a control identifier of another form");
}

void FormControls::Changed(ControlKey id, ControlAspect aspect) {
  if (observer_) observer_->OnControlChanged(id, aspect);
}

void FormControls::SetCaption(ControlKey id, const std::string& text) {
  ControlState& state = State(id);
  if (state.Caption == text) return;
  state.Caption = text;
  if (state.Caret > static_cast<long>(text.size())) state.Caret = static_cast<long>(text.size());
  Changed(id, ControlAspect::Caption);
}

void FormControls::SetToolTip(ControlKey id, const std::string& text) {
  Assign(id, &ControlState::ToolTip, text, ControlAspect::ToolTip);
}

void FormControls::SetEnabled(ControlKey id, bool enabled) {
  Assign(id, &ControlState::Enabled, enabled, ControlAspect::Enabled);
}

void FormControls::SetVisible(ControlKey id, bool visible) {
  Assign(id, &ControlState::Visible, visible, ControlAspect::Visible);
}

void FormControls::SetChecked(ControlKey id, bool checked) {
  if (checked) {
    const int group = Option_Group(id.Value());
    for (auto& [other, state] : states_)
      if (group != 0 && other != id.Value() && state.Checked && Option_Group(other) == group) {
        state.Checked = false;
        Changed(form_.Sibling(other), ControlAspect::Checked);
      }
  }
  Assign(id, &ControlState::Checked, checked, ControlAspect::Checked);
}

int FormControls::Option_Group(int id) const {
  const auto found = optionGroups_.find(id);
  return found == optionGroups_.end() ? 0 : found->second;
}

void FormControls::SetInactive(ControlKey id, bool inactive) {
  Assign(id, &ControlState::Inactive, inactive, ControlAspect::Inactive);
}

void FormControls::SetFont(ControlKey id, const FontSpec& font) {
  Assign(id, &ControlState::Font, font, ControlAspect::Font);
}

void FormControls::SetRect(ControlKey id, const TwipsRect& rect) {
  Assign(id, &ControlState::Rect, rect, ControlAspect::Rect);
}

void FormControls::SetCaret(ControlKey id, long caret) {
  Assign(id, &ControlState::Caret, caret, ControlAspect::Caret);
}

void FormControls::SetFocus(ControlKey id) {
  Check_Form(id);
  focused_ = id;
  if (observer_) observer_->OnFocusRequested(id);
}

void FormControls::TextTyped(ControlKey id, const std::string& text, long caret) {
  State(id).Caption = text;
  State(id).Caret = caret;
}

}  // namespace velmora
