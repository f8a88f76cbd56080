// The key names of the key notation, such as {ENTER} and {F5}.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

// The virtual key of a key name, in any mix of case; nothing for a name
// that is not a key.
std::optional<std::uint16_t> Named_Key(std::string_view name);

// The name that the notation writes for a virtual key, in capitals (the
// first of its names: ENTER, ESC, BACKSPACE); empty for a key without one.
std::string Key_Name(std::uint16_t virtualKey);

}  // namespace velmora
