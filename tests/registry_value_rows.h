// What the registry reports for a value written with a type and a byte count,
// as measured under Wine: a string type whose bytes end without a zero gets
// the one that follows them in memory; other types are kept byte for byte.
// The simulated and the real registry are both held to these rows.
#pragma once

#include <string>

#include "registry.h"

namespace velmora {

using namespace std::string_literals;

struct RegistryValueRow {
  RegistryType type;
  std::string written, reported;
};

inline const RegistryValueRow kRegistryValueRows[] = {
    {RegistryType::String, "1234", "1234\0"s},
    {RegistryType::String, "1234\0"s, "1234\0"s},
    {RegistryType::String, "", ""},
    {RegistryType::ExpandString, "%TEMP%", "%TEMP%\0"s},
    {RegistryType::Binary, "1234", "1234"},
};

}  // namespace velmora
