// The Registry seam: keys and raw values under the current user and the
// classes root. Paths use backslashes and name nested keys; key and value
// names compare without regard to case; the value name "" is a key's default
// value. The calls are as raw as the platform's: the settings store depends on
// the exact byte counts written and reported.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace velmora {

enum class RegistryRoot { CurrentUser, ClassesRoot };

// Value types, numbered as the platform numbers them; a value read back may
// carry any other number.
enum class RegistryType : std::uint32_t { None = 0, String = 1, ExpandString = 2, Binary = 3, MultiString = 7 };

bool Is_String_Type(RegistryType type);

// A value as stored: its type and its bytes, whose count is the size the
// platform reports (for a string, the terminating zero when it holds one).
struct RegistryValue {
  RegistryType type = RegistryType::None;
  std::string bytes;
  bool operator==(const RegistryValue&) const = default;
};

class Registry {
 public:
  virtual ~Registry() = default;
  // Opens an existing key; false when it is missing.
  virtual bool OpenKey(RegistryRoot root, const std::string& path) = 0;
  // Creates the key, and the keys on its path, unless it exists.
  virtual bool CreateKey(RegistryRoot root, const std::string& path) = 0;
  // Nothing when the key or the value is missing.
  virtual std::optional<RegistryValue> QueryValue(RegistryRoot root, const std::string& path,
                                                  const std::string& name) = 0;
  // Writes bytes.size() bytes into an existing key. The bytes are followed
  // in memory by the zero that std::string keeps there; like the platform,
  // a string type whose bytes end in another character then stores that
  // zero too (so a text written without its terminator still gets one).
  virtual bool SetValue(RegistryRoot root, const std::string& path, const std::string& name, RegistryType type,
                        const std::string& bytes) = 0;
  virtual bool DeleteValue(RegistryRoot root, const std::string& path, const std::string& name) = 0;
  // Deletes one key; fails when it is missing or has subkeys.
  virtual bool DeleteKey(RegistryRoot root, const std::string& path) = 0;

  // A string value's text up to its first zero; nothing when the value is
  // missing or not a string.
  std::optional<std::string> QueryString(RegistryRoot root, const std::string& path, const std::string& name);
  // Creates the key when it is missing, then writes the text and its terminating zero.
  bool SetString(RegistryRoot root, const std::string& path, const std::string& name, const std::string& value);
};

}  // namespace velmora
