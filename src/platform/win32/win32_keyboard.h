// Turns key inputs into the system's keyboard input records.
#pragma once

#include <windows.h>

#include <vector>

#include "desktop.h"

namespace velmora {

// Characters go through the active keyboard layout, with the Shift, Ctrl or
// Alt that the layout needs pressed around them (unless already held);
// characters the layout cannot type go as Unicode characters.
std::vector<INPUT> Keyboard_Inputs(const std::vector<KeyInput>& inputs, HKL layout);

}  // namespace velmora
