// The Windows registry behind the Registry seam. Every test works under its
// own scratch key, HKEY_CURRENT_USER\Software\VelmoraTest-<pid> (and the same
// name under HKEY_CLASSES_ROOT), removed when the test ends; the results are
// checked with the registry API directly, not only through the seam.
#include <windows.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "win32_registry.h"

namespace velmora {
namespace {

const std::string kScratch = "VelmoraTest-" + std::to_string(GetCurrentProcessId());
const std::string kBase = "Software\\" + kScratch;
constexpr RegistryRoot kUser = RegistryRoot::CurrentUser;

class RegistryTest : public testing::Test {
 protected:
  void SetUp() override { Cleanup(); }
  void TearDown() override { Cleanup(); }
  // Also removes what a faulty run may have left straight under the current
  // user (a classes-root path written to the wrong root).
  static void Cleanup() {
    RegDeleteTreeA(HKEY_CURRENT_USER, kBase.c_str());
    RegDeleteTreeA(HKEY_CLASSES_ROOT, kScratch.c_str());
    RegDeleteTreeA(HKEY_CURRENT_USER, kScratch.c_str());
  }
  // A value's type and bytes as the registry holds them, read without the code under test.
  static std::optional<std::pair<DWORD, std::string>> Raw(HKEY root, const std::string& path, const std::string& name) {
    DWORD type = 0, size = 0;
    if (RegGetValueA(root, path.c_str(), name.c_str(), RRF_RT_ANY | RRF_NOEXPAND, &type, nullptr, &size) != 0)
      return std::nullopt;
    std::string bytes(size, '\0');
    RegGetValueA(root, path.c_str(), name.c_str(), RRF_RT_ANY | RRF_NOEXPAND, &type, bytes.data(), &size);
    bytes.resize(size);
    return std::pair{type, bytes};
  }
  static bool RawKeyExists(HKEY root, const std::string& path) {
    HKEY key = nullptr;
    if (RegOpenKeyExA(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
    RegCloseKey(key);
    return true;
  }
  Win32Registry registry_;
};

TEST_F(RegistryTest, SetStringStoresAPlainStringThatQueryStringReturns) {
  const std::string rows[][3] = {
      {"Editor", "Script File", "C:\\Setup\\setup.vls"},
      {"Editor", "", "the key's own value"},
      {"Editor", "Top", ""},
      {"Editor", "Debug File", "  \"C:\\Program Files\\x.vld\"  "},
      {"Editor", "Long", std::string(4000, 'L')},
      {"Velmora Software\\Velmora\\EnvVarSetup", "Batch File", "setup.bat"},  // keys created on the way
      {"Editor", "Script File", "short"},                                     // replaces a longer value whole
  };
  for (const auto& [subkey, name, value] : rows) {
    const std::string path = kBase + "\\" + subkey;
    ASSERT_TRUE(registry_.SetString(kUser, path, name, value)) << name;
    EXPECT_EQ(registry_.QueryString(kUser, path, name), value) << name;
    // Other programs read the value too: its text, then at most a terminating zero.
    const auto raw = Raw(HKEY_CURRENT_USER, path, name);
    ASSERT_TRUE(raw.has_value()) << name;
    EXPECT_EQ(raw->first, static_cast<DWORD>(REG_SZ)) << name;
    EXPECT_EQ(raw->second.substr(0, raw->second.find('\0')), value) << name;
    EXPECT_LE(raw->second.size(), value.size() + 1) << name;
  }
  // A string another program stored without its terminating zero still reads whole.
  ASSERT_EQ(RegSetKeyValueA(HKEY_CURRENT_USER, kBase.c_str(), "Raw", REG_SZ, "abc", 3), ERROR_SUCCESS);
  EXPECT_EQ(registry_.QueryString(kUser, kBase, "Raw"), "abc");
}

TEST_F(RegistryTest, KeysAndValuesAreCreatedFoundAndDeletedOneAtATime) {
  const std::string path = kBase + "\\a\\b";
  EXPECT_FALSE(registry_.KeyExists(kUser, path));
  EXPECT_EQ(registry_.QueryString(kUser, path, "v"), std::nullopt);  // no key
  ASSERT_TRUE(registry_.CreateKey(kUser, path));
  EXPECT_TRUE(RawKeyExists(HKEY_CURRENT_USER, path));
  EXPECT_TRUE(registry_.KeyExists(kUser, path));
  EXPECT_EQ(registry_.QueryString(kUser, path, "v"), std::nullopt);  // no value
  EXPECT_EQ(registry_.QueryString(kUser, path, ""), std::nullopt);   // no default value
  EXPECT_FALSE(registry_.DeleteValue(kUser, path, "v"));
  EXPECT_FALSE(registry_.DeleteValue(kUser, path + "\\Missing", "v"));
  ASSERT_TRUE(registry_.SetString(kUser, path, "v", "kept"));
  ASSERT_TRUE(registry_.SetString(kUser, path, "w", "2"));
  ASSERT_TRUE(registry_.CreateKey(kUser, path));  // an existing key keeps its values
  EXPECT_TRUE(registry_.DeleteValue(kUser, path, "w"));
  EXPECT_FALSE(Raw(HKEY_CURRENT_USER, path, "w").has_value());
  EXPECT_EQ(registry_.QueryString(kUser, path, "v"), "kept");
  // A key with subkeys stays, as RegDeleteKeyA does on Windows NT; a leaf goes.
  EXPECT_FALSE(registry_.DeleteKey(kUser, kBase + "\\a"));
  EXPECT_TRUE(RawKeyExists(HKEY_CURRENT_USER, path));
  EXPECT_TRUE(registry_.DeleteKey(kUser, path));
  EXPECT_FALSE(RawKeyExists(HKEY_CURRENT_USER, path));
  EXPECT_TRUE(RawKeyExists(HKEY_CURRENT_USER, kBase + "\\a"));
  EXPECT_FALSE(registry_.DeleteKey(kUser, path));
}

// The file type is registered under the classes root: the seam must write
// there, not under the current user's Software key.
TEST_F(RegistryTest, ClassesRootWritesUnderHkeyClassesRoot) {
  const std::string path = kScratch + "\\shell\\open\\command";
  const std::string command = "\"C:\\Tools\\velmora.exe\" \"%1\"";
  ASSERT_TRUE(registry_.SetString(RegistryRoot::ClassesRoot, path, "", command));
  const auto raw = Raw(HKEY_CLASSES_ROOT, path, "");
  ASSERT_TRUE(raw.has_value());
  EXPECT_EQ(raw->second.substr(0, raw->second.find('\0')), command);
  EXPECT_EQ(registry_.QueryString(RegistryRoot::ClassesRoot, path, ""), command);
  EXPECT_FALSE(RawKeyExists(HKEY_CURRENT_USER, path));
  EXPECT_TRUE(registry_.KeyExists(RegistryRoot::ClassesRoot, kScratch));
}

}  // namespace
}  // namespace velmora
