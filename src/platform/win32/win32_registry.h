// The Registry seam on Windows.
#pragma once

#include "registry.h"

namespace velmora {

class Win32Registry : public Registry {
 public:
  bool CreateKey(RegistryRoot root, const std::string& path) override;
  bool KeyExists(RegistryRoot root, const std::string& path) override;
  std::optional<std::string> QueryString(RegistryRoot root, const std::string& path, const std::string& name) override;
  bool SetString(RegistryRoot root, const std::string& path, const std::string& name,
                 const std::string& value) override;
  bool DeleteValue(RegistryRoot root, const std::string& path, const std::string& name) override;
  bool DeleteKey(RegistryRoot root, const std::string& path) override;
};

}  // namespace velmora
