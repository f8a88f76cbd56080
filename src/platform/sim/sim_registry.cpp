#include "sim_registry.h"

#include <algorithm>
#include <cctype>
#include <vector>

namespace velmora {

namespace {

// The names on a key path; empty ones (doubled or outer backslashes) are skipped.
std::vector<std::string> Path_Names(const std::string& path) {
  std::vector<std::string> names;
  std::string name;
  for (const char c : path + '\\') {
    if (c != '\\') {
      name += c;
    } else if (!name.empty()) {
      names.push_back(std::move(name));
      name.clear();
    }
  }
  return names;
}

}  // namespace

bool SimRegistry::NoCase::operator()(const std::string& a, const std::string& b) const {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
    return std::tolower(x) < std::tolower(y);
  });
}

SimRegistry::Key* SimRegistry::Find(RegistryRoot root, const std::string& path) {
  Key* key = root == RegistryRoot::ClassesRoot ? &classesRoot_ : &currentUser_;
  for (const std::string& name : Path_Names(path)) {
    const auto sub = key->subkeys.find(name);
    if (sub == key->subkeys.end()) return nullptr;
    key = sub->second.get();
  }
  return key;
}

bool SimRegistry::OpenKey(RegistryRoot root, const std::string& path) { return Find(root, path) != nullptr; }

bool SimRegistry::CreateKey(RegistryRoot root, const std::string& path) {
  Key* key = root == RegistryRoot::ClassesRoot ? &classesRoot_ : &currentUser_;
  for (const std::string& name : Path_Names(path)) {
    auto& sub = key->subkeys[name];
    if (!sub) sub = std::make_unique<Key>();
    key = sub.get();
  }
  return true;
}

std::optional<RegistryValue> SimRegistry::QueryValue(RegistryRoot root, const std::string& path,
                                                     const std::string& name) {
  const Key* key = Find(root, path);
  if (!key) return std::nullopt;
  const auto value = key->values.find(name);
  if (value == key->values.end()) return std::nullopt;
  return value->second;
}

bool SimRegistry::SetValue(RegistryRoot root, const std::string& path, const std::string& name, RegistryType type,
                           const std::string& bytes) {
  Key* key = Find(root, path);
  if (!key) return false;
  RegistryValue& value = key->values[name];
  value = {type, bytes};
  if (Is_String_Type(type) && !bytes.empty() && bytes.back() != '\0') value.bytes += '\0';
  return true;
}

bool SimRegistry::DeleteValue(RegistryRoot root, const std::string& path, const std::string& name) {
  Key* key = Find(root, path);
  return key && key->values.erase(name) > 0;
}

bool SimRegistry::DeleteKey(RegistryRoot root, const std::string& path) {
  auto names = Path_Names(path);
  if (names.empty()) return false;  // a root stays
  const std::string leaf = names.back();
  names.pop_back();
  std::string parentPath;
  for (const std::string& name : names) parentPath += name + '\\';
  Key* parent = Find(root, parentPath);
  if (!parent) return false;
  const auto key = parent->subkeys.find(leaf);
  if (key == parent->subkeys.end() || !key->second->subkeys.empty()) return false;
  parent->subkeys.erase(key);
  return true;
}

}  // namespace velmora
