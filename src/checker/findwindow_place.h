// Where a findwindow line that the parser refused went wrong, in the words
// of its syntax: the level and the field, and the fields the line lacks or
// has too many. The run's own complaint names neither.
#pragma once

#include <string>
#include <string_view>

namespace velmora {

// For the parameter text of a refused findwindow line, for example
// `level 1, the ChildID reads 0.5; the line has 6 fields where 1 level and the time take 7`.
std::string FindWindow_Fault_Place(std::string_view parameters, double speedFactor);

}  // namespace velmora
