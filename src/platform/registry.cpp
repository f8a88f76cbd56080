#include "registry.h"

namespace velmora {

bool Is_String_Type(RegistryType type) {
  return type == RegistryType::String || type == RegistryType::ExpandString || type == RegistryType::MultiString;
}

std::optional<std::string> Registry::QueryString(RegistryRoot root, const std::string& path, const std::string& name) {
  const auto value = QueryValue(root, path, name);
  if (!value || (value->type != RegistryType::String && value->type != RegistryType::ExpandString)) return std::nullopt;
  return value->bytes.substr(0, value->bytes.find('\0'));
}

bool Registry::SetString(RegistryRoot root, const std::string& path, const std::string& name,
                         const std::string& value) {
  return CreateKey(root, path) && SetValue(root, path, name, RegistryType::String, value + '\0');
}

}  // namespace velmora
