// The editor's controls as designed: one declaration per control, in
// creation (and tab) order. The view creates the controls from this table;
// the model starts from it.
#pragma once

#include <vector>

#include "form_controls.h"
#include "form_declaration.h"

namespace velmora {

// The designed size of the form (outer edges), and the smallest it may get.
constexpr long kDesignedFormWidth = 9600;
constexpr long kDesignedFormHeight = 9000;
constexpr long kMinimumFormWidth = 8295;
constexpr long kMinimumFormHeight = 8595;

// How much of a height beyond the designed one the script list takes (the
// debug output takes the rest): a taller window is for more script as well.
constexpr long Script_Share_Of_Height(long formHeight) {
  return formHeight > kDesignedFormHeight ? (formHeight - kDesignedFormHeight) / 2 : 0;
}

const std::vector<ControlDeclaration>& Editor_Controls();
const ControlDeclaration* Find_Declaration(ControlId id);

}  // namespace velmora
