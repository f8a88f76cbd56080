// The Windows registry under scratch keys of the current user and the classes
// root; results are also read with the registry API directly.
#include <windows.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "win32_handles.h"
#include "win32_registry.h"

namespace velmora {
namespace {

const std::string kScratch = "VelmoraTest-" + std::to_string(GetCurrentProcessId());
const std::string kBase = "Software\\" + kScratch;
constexpr RegistryRoot kUser = RegistryRoot::CurrentUser;

// A value's type and bytes as the registry holds them.
std::optional<std::pair<DWORD, std::string>> Raw(HKEY root, const std::string& path, const std::string& name) {
  DWORD type = 0, size = 0;
  if (RegGetValueA(root, path.c_str(), name.c_str(), RRF_RT_ANY | RRF_NOEXPAND, &type, nullptr, &size) != 0)
    return std::nullopt;
  std::string bytes(size, '\0');
  RegGetValueA(root, path.c_str(), name.c_str(), RRF_RT_ANY | RRF_NOEXPAND, &type, bytes.data(), &size);
  return std::pair{type, bytes.substr(0, size)};
}
bool RawKeyExists(const std::string& path) {
  ScopedKey key;
  return RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, key.receive()) == ERROR_SUCCESS;
}

class RegistryTest : public testing::Test {
 protected:
  void SetUp() override { TearDown(); }
  // Also what a faulty run may have written straight under the current user.
  void TearDown() override {
    RegDeleteTreeA(HKEY_CURRENT_USER, kBase.c_str());
    RegDeleteTreeA(HKEY_CLASSES_ROOT, kScratch.c_str());
    RegDeleteTreeA(HKEY_CURRENT_USER, kScratch.c_str());
  }
  Win32Registry registry_;
};

TEST_F(RegistryTest, SetStringStoresAPlainStringThatQueryStringReturnsUnderEitherRoot) {
  const std::string editor = kBase + "\\Editor";
  const std::tuple<RegistryRoot, std::string, std::string, std::string> rows[] = {
      {kUser, editor, "Script File", "C:\\Setup\\setup.vls"},
      {kUser, editor, "", "the key's own value"},
      {kUser, editor, "Top", ""},
      {kUser, editor, "Long", std::string(4000, 'L')},
      {RegistryRoot::ClassesRoot, kScratch + "\\shell\\open\\command", "", "\"C:\\Tools\\velmora.exe\" \"%1\""},
  };
  for (const auto& [root, path, name, value] : rows) {
    ASSERT_TRUE(registry_.SetString(root, path, name, value)) << name;
    EXPECT_EQ(registry_.QueryString(root, path, name), value) << name;
    // Other programs read it too: its text, then at most a terminating zero.
    const auto raw = Raw(root == kUser ? HKEY_CURRENT_USER : HKEY_CLASSES_ROOT, path, name);
    ASSERT_TRUE(raw.has_value()) << name;
    EXPECT_EQ(raw->first, static_cast<DWORD>(REG_SZ)) << name;
    EXPECT_EQ(raw->second.substr(0, raw->second.find('\0')), value) << name;
    EXPECT_LE(raw->second.size(), value.size() + 1) << name;
  }
  EXPECT_FALSE(RawKeyExists(kScratch));
  // A string another program stored without its terminating zero still reads whole.
  ASSERT_EQ(RegSetKeyValueA(HKEY_CURRENT_USER, kBase.c_str(), "Raw", REG_SZ, "abcd", 3), ERROR_SUCCESS);
  EXPECT_EQ(registry_.QueryString(kUser, kBase, "Raw"), "abc");
}

TEST_F(RegistryTest, KeysAndValuesAreCreatedFoundAndDeletedOneAtATime) {
  const std::string path = kBase + "\\a\\b";
  EXPECT_FALSE(registry_.OpenKey(kUser, path));
  ASSERT_TRUE(registry_.CreateKey(kUser, path));
  EXPECT_TRUE(registry_.OpenKey(kUser, path));
  EXPECT_EQ(registry_.QueryString(kUser, path, ""), std::nullopt);  // no default value
  EXPECT_FALSE(registry_.DeleteValue(kUser, path, "v"));
  ASSERT_TRUE(registry_.SetString(kUser, path, "v", "kept"));
  ASSERT_TRUE(registry_.SetString(kUser, path, "w", "2"));
  ASSERT_TRUE(registry_.CreateKey(kUser, path));  // an existing key keeps its values
  EXPECT_TRUE(registry_.DeleteValue(kUser, path, "w"));
  EXPECT_EQ(registry_.QueryString(kUser, path, "v"), "kept");
  // A key with subkeys stays, as RegDeleteKeyA does on Windows NT; a leaf goes.
  EXPECT_FALSE(registry_.DeleteKey(kUser, kBase + "\\a"));
  EXPECT_TRUE(registry_.DeleteKey(kUser, path));
  EXPECT_FALSE(RawKeyExists(path));
  EXPECT_TRUE(RawKeyExists(kBase + "\\a"));
  // Raw writes, as the settings store makes them: a text without its zero gets one; an empty one stays empty.
  ASSERT_TRUE(registry_.SetValue(kUser, kBase, "u", RegistryType::String, "unnamed"));
  ASSERT_TRUE(registry_.SetValue(kUser, kBase, "e", RegistryType::String, ""));
  EXPECT_EQ(registry_.QueryValue(kUser, kBase, "u"), (RegistryValue{RegistryType::String, {"unnamed", 8}}));
  EXPECT_EQ(registry_.QueryValue(kUser, kBase, "e"), (RegistryValue{RegistryType::String, ""}));
}

}  // namespace
}  // namespace velmora
