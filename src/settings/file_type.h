// Registration of the script file type with the shell, written on every start.
#pragma once

#include <string>

namespace velmora {

class Registry;

// Makes ".vls" files show as "Velmora Script file" and open with the program
// at programPath. Failures are silent: the start-up goes on.
void Register_FileType(Registry& registry, const std::string& programPath);

}  // namespace velmora
