// A registry made of memory, for tests: a tree of keys under each root, key
// and value names without regard to case, values as a type and raw bytes.
// It keeps the platform's byte counts as measured under Wine: a string type
// written without its terminator gets one (see Registry::SetValue), and a
// value is reported with exactly the bytes it holds, so a string stored
// without a terminator (a binary value read as text, say) is reported
// without one.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "registry.h"

namespace velmora {

class SimRegistry : public Registry {
 public:
  bool OpenKey(RegistryRoot root, const std::string& path) override;
  bool CreateKey(RegistryRoot root, const std::string& path) override;
  std::optional<RegistryValue> QueryValue(RegistryRoot root, const std::string& path, const std::string& name) override;
  bool SetValue(RegistryRoot root, const std::string& path, const std::string& name, RegistryType type,
                const std::string& bytes) override;
  bool DeleteValue(RegistryRoot root, const std::string& path, const std::string& name) override;
  bool DeleteKey(RegistryRoot root, const std::string& path) override;

 private:
  struct NoCase {
    bool operator()(const std::string& a, const std::string& b) const;
  };
  struct Key {
    std::map<std::string, std::unique_ptr<Key>, NoCase> subkeys;
    std::map<std::string, RegistryValue, NoCase> values;
  };

  // The key at path, or null when it (or a key on its way) is missing.
  Key* Find(RegistryRoot root, const std::string& path);

  Key currentUser_, classesRoot_;
};

}  // namespace velmora
