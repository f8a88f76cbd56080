// The parameters of a findwindow line: a count of window levels, for each
// level a quoted title and class and three numbers, then a time.
#pragma once

#include <cstddef>
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
// The place, when given, follows the reading: after a complaint or a failure
// it names the field at fault, for a checker to point at.
struct FindWindowPlace {
  enum Field { kCount, kTitle, kClass, kChildId, kRelativeX, kRelativeY, kTime };
  int levels = 0;           // the count, once read
  int level = 0;            // from 1; 0 for the count and the time
  Field field = kCount;
  std::size_t offset = 0;   // where the field starts in the text
};

CheckResult Read_FindWindow(std::string_view text, double speedFactor, std::string& parameters,
                            std::int32_t& timeOut, FindWindowPlace* place = nullptr);

}  // namespace velmora
