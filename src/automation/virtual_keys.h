// The Windows virtual-key codes that the key notation produces. They carry
// the Windows names without the VK_ prefix: <windows.h> defines those names
// as macros, and a file that includes both must still compile.
#pragma once

#include <cstdint>

namespace velmora::virtual_key {

inline constexpr std::uint16_t kCancel = 0x03;  // {BREAK}
inline constexpr std::uint16_t kBack = 0x08;
inline constexpr std::uint16_t kTab = 0x09;
inline constexpr std::uint16_t kReturn = 0x0D;
inline constexpr std::uint16_t kShift = 0x10;
inline constexpr std::uint16_t kControl = 0x11;
inline constexpr std::uint16_t kMenu = 0x12;  // Alt
inline constexpr std::uint16_t kCapital = 0x14;
inline constexpr std::uint16_t kEscape = 0x1B;
inline constexpr std::uint16_t kPrior = 0x21;  // Page Up
inline constexpr std::uint16_t kNext = 0x22;   // Page Down
inline constexpr std::uint16_t kEnd = 0x23;
inline constexpr std::uint16_t kHome = 0x24;
inline constexpr std::uint16_t kLeft = 0x25;
inline constexpr std::uint16_t kUp = 0x26;
inline constexpr std::uint16_t kRight = 0x27;
inline constexpr std::uint16_t kDown = 0x28;
inline constexpr std::uint16_t kSnapshot = 0x2C;  // Print Screen
inline constexpr std::uint16_t kInsert = 0x2D;
inline constexpr std::uint16_t kDelete = 0x2E;
inline constexpr std::uint16_t kHelp = 0x2F;
inline constexpr std::uint16_t kMultiply = 0x6A;
inline constexpr std::uint16_t kAdd = 0x6B;
inline constexpr std::uint16_t kSubtract = 0x6D;
inline constexpr std::uint16_t kDivide = 0x6F;
inline constexpr std::uint16_t kF1 = 0x70;
inline constexpr std::uint16_t kF16 = 0x7F;
inline constexpr std::uint16_t kNumLock = 0x90;
inline constexpr std::uint16_t kScroll = 0x91;  // Scroll Lock

}  // namespace velmora::virtual_key
