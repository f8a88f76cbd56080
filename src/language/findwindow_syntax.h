// The parameters of a findwindow line: a count of window levels, for each
// level a quoted title and class and three numbers, then a time.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "parameter_errors.h"

namespace velmora {

// Checks the parameters and writes them in normalised form: the count, then
// for each level the quoted title, the quoted class and the three numbers,
// each item followed by ", ". The time goes to timeOut. Text that cannot be
// cut where a comma is missing unchecked: InvalidCallError; a count above
// 255: OverflowError.
CheckResult Read_FindWindow(std::string_view text, double speedFactor, std::string& parameters,
                            std::int32_t& timeOut);

}  // namespace velmora
