#include "win32_registry.h"

#include <windows.h>

#include "win32_handles.h"

namespace velmora {

namespace {

// KEY_ALL_ACCESS, as the settings store has always opened its keys.
constexpr REGSAM kAllAccess = 0xF003F;

HKEY Root_Key(RegistryRoot root) { return root == RegistryRoot::ClassesRoot ? HKEY_CLASSES_ROOT : HKEY_CURRENT_USER; }

// An existing key, or an empty owner when it cannot be opened.
ScopedKey Open_Key(RegistryRoot root, const std::string& path) {
  ScopedKey key;
  if (RegOpenKeyExA(Root_Key(root), path.c_str(), 0, kAllAccess, key.receive()) != ERROR_SUCCESS) key.release();
  return key;
}

}  // namespace

bool Win32Registry::OpenKey(RegistryRoot root, const std::string& path) {
  return static_cast<bool>(Open_Key(root, path));
}

bool Win32Registry::CreateKey(RegistryRoot root, const std::string& path) {
  ScopedKey key;
  if (RegCreateKeyExA(Root_Key(root), path.c_str(), 0, nullptr, 0, kAllAccess, nullptr, key.receive(), nullptr) !=
      ERROR_SUCCESS)
    key.release();
  return static_cast<bool>(key);
}

// Asks for the size first, then reads that many bytes.
std::optional<RegistryValue> Win32Registry::QueryValue(RegistryRoot root, const std::string& path,
                                                       const std::string& name) {
  const ScopedKey key = Open_Key(root, path);
  DWORD type = 0, size = 0;
  if (!key || RegQueryValueExA(key.get(), name.c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS)
    return std::nullopt;
  std::string bytes(size, '\0');
  if (size > 0 && RegQueryValueExA(key.get(), name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(bytes.data()),
                                   &size) != ERROR_SUCCESS)
    return std::nullopt;
  bytes.resize(size);
  return RegistryValue{static_cast<RegistryType>(type), bytes};
}

bool Win32Registry::SetValue(RegistryRoot root, const std::string& path, const std::string& name, RegistryType type,
                             const std::string& bytes) {
  const ScopedKey key = Open_Key(root, path);
  return key && RegSetValueExA(key.get(), name.c_str(), 0, static_cast<DWORD>(type),
                               reinterpret_cast<const BYTE*>(bytes.c_str()),
                               static_cast<DWORD>(bytes.size())) == ERROR_SUCCESS;
}

bool Win32Registry::DeleteValue(RegistryRoot root, const std::string& path, const std::string& name) {
  const ScopedKey key = Open_Key(root, path);
  return key && RegDeleteValueA(key.get(), name.c_str()) == ERROR_SUCCESS;
}

// RegDeleteKeyA leaves a key that has subkeys (access denied), unlike RegDeleteTreeA.
bool Win32Registry::DeleteKey(RegistryRoot root, const std::string& path) {
  return RegDeleteKeyA(Root_Key(root), path.c_str()) == ERROR_SUCCESS;
}

}  // namespace velmora
