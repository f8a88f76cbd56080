// Times in scripts: "MM.SS" (minutes, a full stop, seconds), or whole minutes.
#pragma once

#include <cstdint>
#include <string_view>

#include "parameter_errors.h"

namespace velmora {

// Reads a time into whole seconds. A time written with a full stop is scaled
// by the speed factor; whole minutes are not. The full stop is always ".",
// whatever the locale. A result beyond 32 bits: OverflowError.
CheckResult Read_Time(std::string_view text, double speedFactor, std::int32_t& timeOut);

}  // namespace velmora
