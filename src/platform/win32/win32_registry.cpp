#include "win32_registry.h"

#include <windows.h>

#include <vector>

#include "win32_handles.h"

namespace velmora {

namespace {

HKEY Root_Key(RegistryRoot root) { return root == RegistryRoot::ClassesRoot ? HKEY_CLASSES_ROOT : HKEY_CURRENT_USER; }

// Opens (or creates) a key; an empty owner when that fails.
ScopedKey Open_Key(RegistryRoot root, const std::string& path, REGSAM access, bool create) {
  ScopedKey key;
  const LONG status = create ? RegCreateKeyExA(Root_Key(root), path.c_str(), 0, nullptr, 0, access, nullptr,
                                               key.receive(), nullptr)
                             : RegOpenKeyExA(Root_Key(root), path.c_str(), 0, access, key.receive());
  if (status != ERROR_SUCCESS) key.release();
  return key;
}

}  // namespace

bool Win32Registry::CreateKey(RegistryRoot root, const std::string& path) {
  return static_cast<bool>(Open_Key(root, path, KEY_WRITE, true));
}

bool Win32Registry::KeyExists(RegistryRoot root, const std::string& path) {
  return static_cast<bool>(Open_Key(root, path, KEY_READ, false));
}

std::optional<std::string> Win32Registry::QueryString(RegistryRoot root, const std::string& path,
                                                      const std::string& name) {
  const ScopedKey key = Open_Key(root, path, KEY_READ, false);
  if (!key) return std::nullopt;
  DWORD type = 0, size = 0;
  if (RegQueryValueExA(key.get(), name.c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS ||
      (type != REG_SZ && type != REG_EXPAND_SZ))
    return std::nullopt;
  std::vector<char> value(size + 1, '\0');
  if (RegQueryValueExA(key.get(), name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(value.data()), &size) !=
      ERROR_SUCCESS)
    return std::nullopt;
  return std::string(value.data());  // stops at the terminator, which the stored size may include
}

bool Win32Registry::SetString(RegistryRoot root, const std::string& path, const std::string& name,
                              const std::string& value) {
  const ScopedKey key = Open_Key(root, path, KEY_WRITE, true);
  return key && RegSetValueExA(key.get(), name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                               static_cast<DWORD>(value.size() + 1)) == ERROR_SUCCESS;
}

bool Win32Registry::DeleteValue(RegistryRoot root, const std::string& path, const std::string& name) {
  const ScopedKey key = Open_Key(root, path, KEY_WRITE, false);
  return key && RegDeleteValueA(key.get(), name.c_str()) == ERROR_SUCCESS;
}

bool Win32Registry::DeleteKey(RegistryRoot root, const std::string& path) {
  return RegDeleteKeyA(Root_Key(root), path.c_str()) == ERROR_SUCCESS;
}

}  // namespace velmora
