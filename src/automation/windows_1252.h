// Script files are Windows-1252 text: one byte is one character.
#pragma once

#include <optional>

namespace velmora {

// The Unicode character of one Windows-1252 byte; nothing for the five bytes
// that the code page leaves undefined (0x81, 0x8D, 0x8F, 0x90, 0x9D).
std::optional<char32_t> Windows_1252_Character(unsigned char byte);

// The byte of a character; nothing for a character the code page lacks.
std::optional<unsigned char> Windows_1252_Byte(char32_t character);

}  // namespace velmora
