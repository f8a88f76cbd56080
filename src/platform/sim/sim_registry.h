// A registry made of memory, for tests.
#pragma once

#include <map>
#include <set>
#include <string>

#include "registry.h"

namespace velmora {

class SimRegistry : public Registry {
 public:
  using Key = std::pair<RegistryRoot, std::string>;

  std::set<Key> keys;
  std::map<Key, std::map<std::string, std::string>> values;

  bool CreateKey(RegistryRoot root, const std::string& path) override;
  bool KeyExists(RegistryRoot root, const std::string& path) override;
  std::optional<std::string> QueryString(RegistryRoot root, const std::string& path, const std::string& name) override;
  bool SetString(RegistryRoot root, const std::string& path, const std::string& name,
                 const std::string& value) override;
  bool DeleteValue(RegistryRoot root, const std::string& path, const std::string& name) override;
  bool DeleteKey(RegistryRoot root, const std::string& path) override;
};

}  // namespace velmora
