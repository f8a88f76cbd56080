// The batch editor's controls as designed, in creation (and tab) order.
#pragma once

#include <vector>

#include "editor_layout.h"

namespace velmora {

constexpr char kEnvVarSetupTitle[] = "Assign Environment Variables in Batch File";
constexpr long kDesignedBatchFormWidth = 7800;
constexpr long kDesignedBatchFormHeight = 6600;
constexpr long kMinimumBatchFormWidth = 5400;
constexpr long kMinimumBatchFormHeight = 4200;

const std::vector<ControlDeclaration>& Batch_Controls();

}  // namespace velmora
