#include "file_type.h"

#include "registry.h"
#include "velmora_version.h"

namespace velmora {

namespace {

// Where the installer puts the program; the icon entry names it whatever
// directory the running program is in.
constexpr const char* kInstalledIconPath = "C:\\Program Files\\Velmora\\velmora.exe,0";

std::string Directory_Of(const std::string& path) {
  const auto slash = path.find_last_of("\\/");
  return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

// The executable's file name without its extension.
std::string Program_Name_Of(const std::string& path) {
  const auto slash = path.find_last_of("\\/");
  std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
  if (const auto dot = name.find_last_of('.'); dot != std::string::npos) name.resize(dot);
  return name;
}

}  // namespace

void Register_FileType(Registry& registry, const std::string& programPath) {
  const std::string progName = Program_Name_Of(programPath);
  const std::string command =
      "\"" + Directory_Of(programPath) + "\\" + progName + ".exe\" \"%1\"";
  const RegistryRoot root = RegistryRoot::ClassesRoot;
  registry.SetString(root, progName, "", VELMORA_PRODUCT_TEXT " Script file");
  registry.SetString(root, ".vls", "", progName);
  registry.SetString(root, progName + "\\shell\\open\\command", "", command);
  registry.SetString(root, progName + "\\DefaultIcon", "", kInstalledIconPath);
}

}  // namespace velmora
