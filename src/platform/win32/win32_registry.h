// The Registry seam on Windows: each call opens its key with all access,
// makes one or two registry calls and closes the key again.
#pragma once

#include "registry.h"

namespace velmora {

class Win32Registry : public Registry {
 public:
  bool OpenKey(RegistryRoot root, const std::string& path) override;
  bool CreateKey(RegistryRoot root, const std::string& path) override;
  std::optional<RegistryValue> QueryValue(RegistryRoot root, const std::string& path, const std::string& name) override;
  bool SetValue(RegistryRoot root, const std::string& path, const std::string& name, RegistryType type,
                const std::string& bytes) override;
  bool DeleteValue(RegistryRoot root, const std::string& path, const std::string& name) override;
  bool DeleteKey(RegistryRoot root, const std::string& path) override;
};

}  // namespace velmora
