// The batch editor's controls: their identifiers and the form as designed,
// in creation (and tab) order.
#pragma once

#include "form_declaration.h"

namespace velmora {

// Scripts find the batch editor's controls by these (findwindow's ChildID).
enum class BatchId : int {
  Form = 0,  // the batch editor's window
  BatchFileLabel = 2001,
  OpenBatchButton = 2002,
  SaveBatchButton = 2003,
  BatchWindow = 2004,
  BatchFrame = 2005,
  EnvVarNameLabel = 2006,
  EnvVarValue = 2007,
  UpdateEnvVarButton = 2008,
};

template <>
inline constexpr bool kFormIdentifiers<BatchId> = true;

constexpr long kDesignedBatchFormWidth = 7800;
constexpr long kDesignedBatchFormHeight = 6600;
constexpr long kMinimumBatchFormWidth = 5400;
constexpr long kMinimumBatchFormHeight = 4200;

const FormDeclaration& Batch_Form();

}  // namespace velmora
