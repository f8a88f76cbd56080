#include "sim_registry.h"

namespace velmora {

bool SimRegistry::CreateKey(RegistryRoot root, const std::string& path) {
  keys.insert({root, path});
  return true;
}

bool SimRegistry::KeyExists(RegistryRoot root, const std::string& path) { return keys.count({root, path}) > 0; }

std::optional<std::string> SimRegistry::QueryString(RegistryRoot root, const std::string& path,
                                                    const std::string& name) {
  const auto key = values.find({root, path});
  if (key == values.end()) return std::nullopt;
  const auto value = key->second.find(name);
  if (value == key->second.end()) return std::nullopt;
  return value->second;
}

bool SimRegistry::SetString(RegistryRoot root, const std::string& path, const std::string& name,
                            const std::string& value) {
  CreateKey(root, path);
  values[{root, path}][name] = value;
  return true;
}

bool SimRegistry::DeleteValue(RegistryRoot root, const std::string& path, const std::string& name) {
  const auto key = values.find({root, path});
  return key != values.end() && key->second.erase(name) > 0;
}

bool SimRegistry::DeleteKey(RegistryRoot root, const std::string& path) {
  values.erase({root, path});
  return keys.erase({root, path}) > 0;
}

}  // namespace velmora
