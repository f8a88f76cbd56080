// The Registry seam: keys and string values under the current user and the
// classes root. Paths use backslashes; the value name "" is a key's default value.
#pragma once

#include <optional>
#include <string>

namespace velmora {

enum class RegistryRoot { CurrentUser, ClassesRoot };

class Registry {
 public:
  virtual ~Registry() = default;
  virtual bool CreateKey(RegistryRoot root, const std::string& path) = 0;
  virtual bool KeyExists(RegistryRoot root, const std::string& path) = 0;
  virtual std::optional<std::string> QueryString(RegistryRoot root, const std::string& path,
                                                 const std::string& name) = 0;
  // Creates the key when it is missing.
  virtual bool SetString(RegistryRoot root, const std::string& path, const std::string& name,
                         const std::string& value) = 0;
  virtual bool DeleteValue(RegistryRoot root, const std::string& path, const std::string& name) = 0;
  virtual bool DeleteKey(RegistryRoot root, const std::string& path) = 0;
};

}  // namespace velmora
