// The Windows registry behind the Registry seam. Every test works under its
// own scratch key, HKEY_CURRENT_USER\Software\VelmoraTest-<pid> (and the same
// name under HKEY_CLASSES_ROOT), removed when the test ends; the results are
// checked with the registry API directly, not only through the seam.
#include <windows.h>

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "win32_registry.h"

namespace velmora {
namespace {

std::string ScratchName() { return "VelmoraTest-" + std::to_string(GetCurrentProcessId()); }

class RegistryTest : public testing::Test {
 protected:
  void SetUp() override { Cleanup(); }
  void TearDown() override { Cleanup(); }

  // Also removes what a faulty run may have left straight under the current
  // user (a classes-root path written to the wrong root).
  static void Cleanup() {
    RegDeleteTreeA(HKEY_CURRENT_USER, base_.c_str());
    RegDeleteTreeA(HKEY_CLASSES_ROOT, ScratchName().c_str());
    RegDeleteTreeA(HKEY_CURRENT_USER, ScratchName().c_str());
  }

  // What the registry holds, read without the code under test.
  struct RawValue {
    DWORD type = 0;
    std::string bytes;
  };
  static std::optional<RawValue> Raw(HKEY root, const std::string& path, const std::string& name) {
    HKEY key = nullptr;
    if (RegOpenKeyExA(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return std::nullopt;
    RawValue value;
    DWORD size = 0;
    std::optional<RawValue> result;
    if (RegQueryValueExA(key, name.c_str(), nullptr, &value.type, nullptr, &size) == ERROR_SUCCESS) {
      value.bytes.resize(size);
      if (RegQueryValueExA(key, name.c_str(), nullptr, &value.type, reinterpret_cast<BYTE*>(value.bytes.data()),
                           &size) == ERROR_SUCCESS) {
        value.bytes.resize(size);
        result = value;
      }
    }
    RegCloseKey(key);
    return result;
  }
  static bool RawKeyExists(HKEY root, const std::string& path) {
    HKEY key = nullptr;
    if (RegOpenKeyExA(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
    RegCloseKey(key);
    return true;
  }
  static void RawSet(const std::string& path, const std::string& name, DWORD type, const std::string& bytes) {
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr),
              ERROR_SUCCESS);
    ASSERT_EQ(RegSetValueExA(key, name.c_str(), 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                             static_cast<DWORD>(bytes.size())),
              ERROR_SUCCESS);
    RegCloseKey(key);
  }

  static inline const std::string base_ = "Software\\" + ScratchName();
  Win32Registry registry_;
};

struct RoundTripCase {
  const char* name;
  std::string subkey;  // below the scratch key; "" is the scratch key itself
  std::string valueName;
  std::string value;
};
// Failure messages name the row instead of dumping its bytes.
void PrintTo(const RoundTripCase& row, std::ostream* out) { *out << row.name; }

const RoundTripCase kRoundTrips[] = {
    {"plain", "Editor", "Script File", "C:\\Setup\\setup.vls"},
    {"default_value", "Editor", "", "the key's own value"},
    {"empty_text", "Editor", "Top", ""},
    {"quotes_and_blanks", "Editor", "Debug File", "  \"C:\\Program Files\\x.vld\"  "},
    {"long_text", "Editor", "Long", std::string(4000, 'L')},
    {"nested_key_created", "Velmora Software\\Velmora\\EnvVarSetup", "Batch File", "setup.bat"},
};

class RegistryRoundTripTest : public RegistryTest, public testing::WithParamInterface<RoundTripCase> {};

TEST_P(RegistryRoundTripTest, SetStringStoresAStringThatQueryStringReturns) {
  const auto& row = GetParam();
  const std::string path = row.subkey.empty() ? base_ : base_ + "\\" + row.subkey;
  ASSERT_TRUE(registry_.SetString(RegistryRoot::CurrentUser, path, row.valueName, row.value));
  EXPECT_EQ(registry_.QueryString(RegistryRoot::CurrentUser, path, row.valueName), row.value);

  const auto raw = Raw(HKEY_CURRENT_USER, path, row.valueName);
  ASSERT_TRUE(raw.has_value());
  EXPECT_EQ(raw->type, static_cast<DWORD>(REG_SZ));
  // Other programs read the value too: its text, then at most a terminating zero.
  const std::string stored = raw->bytes.substr(0, raw->bytes.find('\0'));
  EXPECT_EQ(stored, row.value);
  EXPECT_LE(raw->bytes.size(), row.value.size() + 1);
}

INSTANTIATE_TEST_SUITE_P(Values, RegistryRoundTripTest, testing::ValuesIn(kRoundTrips),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(RegistryTest, ShorterValueReplacesLongerOneCompletely) {
  ASSERT_TRUE(registry_.SetString(RegistryRoot::CurrentUser, base_, "Width", "12345678"));
  ASSERT_TRUE(registry_.SetString(RegistryRoot::CurrentUser, base_, "Width", "90"));
  EXPECT_EQ(registry_.QueryString(RegistryRoot::CurrentUser, base_, "Width"), "90");
}

struct MissingCase {
  const char* name;
  bool createKey;
  const char* path;  // below the scratch key
  const char* valueName;
};
void PrintTo(const MissingCase& row, std::ostream* out) { *out << row.name; }

const MissingCase kMissing[] = {
    {"missing_key", false, "Editor", "Top"},
    {"missing_value", true, "Editor", "Top"},
    {"missing_default_value", true, "Editor", ""},
};

class RegistryMissingTest : public RegistryTest, public testing::WithParamInterface<MissingCase> {};

TEST_P(RegistryMissingTest, QueryStringReturnsNothing) {
  const std::string path = base_ + "\\" + GetParam().path;
  if (GetParam().createKey) {
    ASSERT_TRUE(registry_.CreateKey(RegistryRoot::CurrentUser, path));
  }
  EXPECT_EQ(registry_.QueryString(RegistryRoot::CurrentUser, path, GetParam().valueName), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Values, RegistryMissingTest, testing::ValuesIn(kMissing),
                         [](const auto& info) { return std::string(info.param.name); });

// Values that another program wrote: a string stored without its terminating
// zero still reads whole.
TEST_F(RegistryTest, StringWithoutTerminatorReadsWhole) {
  RawSet(base_, "Raw", REG_SZ, "abc");
  EXPECT_EQ(registry_.QueryString(RegistryRoot::CurrentUser, base_, "Raw"), "abc");
}

TEST_F(RegistryTest, CreateKeyAndKeyExists) {
  const std::string path = base_ + "\\a\\b";
  EXPECT_FALSE(registry_.KeyExists(RegistryRoot::CurrentUser, path));
  ASSERT_TRUE(registry_.CreateKey(RegistryRoot::CurrentUser, path));
  EXPECT_TRUE(RawKeyExists(HKEY_CURRENT_USER, path));
  EXPECT_TRUE(registry_.KeyExists(RegistryRoot::CurrentUser, path));
  // Creating an existing key succeeds and keeps its values.
  ASSERT_TRUE(registry_.SetString(RegistryRoot::CurrentUser, path, "v", "kept"));
  ASSERT_TRUE(registry_.CreateKey(RegistryRoot::CurrentUser, path));
  EXPECT_EQ(registry_.QueryString(RegistryRoot::CurrentUser, path, "v"), "kept");
}

TEST_F(RegistryTest, DeleteValueRemovesOnlyThatValue) {
  ASSERT_TRUE(registry_.SetString(RegistryRoot::CurrentUser, base_, "Top", "1"));
  ASSERT_TRUE(registry_.SetString(RegistryRoot::CurrentUser, base_, "Left", "2"));
  EXPECT_TRUE(registry_.DeleteValue(RegistryRoot::CurrentUser, base_, "Top"));
  EXPECT_FALSE(Raw(HKEY_CURRENT_USER, base_, "Top").has_value());
  EXPECT_EQ(registry_.QueryString(RegistryRoot::CurrentUser, base_, "Left"), "2");
}

TEST_F(RegistryTest, DeleteValueOfMissingValueOrKeyFails) {
  ASSERT_TRUE(registry_.CreateKey(RegistryRoot::CurrentUser, base_));
  EXPECT_FALSE(registry_.DeleteValue(RegistryRoot::CurrentUser, base_, "Top"));
  EXPECT_FALSE(registry_.DeleteValue(RegistryRoot::CurrentUser, base_ + "\\Missing", "Top"));
}

TEST_F(RegistryTest, DeleteKeyRemovesALeafKey) {
  const std::string path = base_ + "\\Editor";
  ASSERT_TRUE(registry_.SetString(RegistryRoot::CurrentUser, path, "Top", "1"));
  EXPECT_TRUE(registry_.DeleteKey(RegistryRoot::CurrentUser, path));
  EXPECT_FALSE(RawKeyExists(HKEY_CURRENT_USER, path));
  EXPECT_TRUE(RawKeyExists(HKEY_CURRENT_USER, base_));
}

// Deleting a key that still has subkeys fails, as RegDeleteKeyA does on
// Windows NT, and leaves the tree as it was.
TEST_F(RegistryTest, DeleteKeyWithSubkeysFailsAndKeepsThem) {
  ASSERT_TRUE(registry_.CreateKey(RegistryRoot::CurrentUser, base_ + "\\Parent\\Child"));
  EXPECT_FALSE(registry_.DeleteKey(RegistryRoot::CurrentUser, base_ + "\\Parent"));
  EXPECT_TRUE(RawKeyExists(HKEY_CURRENT_USER, base_ + "\\Parent\\Child"));
}

TEST_F(RegistryTest, DeleteKeyOfMissingKeyFails) {
  EXPECT_FALSE(registry_.DeleteKey(RegistryRoot::CurrentUser, base_ + "\\Missing"));
}

// The file type is registered under the classes root: the seam must write
// there, not under the current user's Software key.
TEST_F(RegistryTest, ClassesRootWritesUnderHkeyClassesRoot) {
  const std::string path = ScratchName() + "\\shell\\open\\command";
  const std::string command = "\"C:\\Tools\\velmora.exe\" \"%1\"";
  ASSERT_TRUE(registry_.SetString(RegistryRoot::ClassesRoot, path, "", command));
  const auto raw = Raw(HKEY_CLASSES_ROOT, path, "");
  ASSERT_TRUE(raw.has_value());
  EXPECT_EQ(raw->bytes.substr(0, raw->bytes.find('\0')), command);
  EXPECT_EQ(registry_.QueryString(RegistryRoot::ClassesRoot, path, ""), command);
  EXPECT_FALSE(RawKeyExists(HKEY_CURRENT_USER, path));
  EXPECT_TRUE(registry_.KeyExists(RegistryRoot::ClassesRoot, ScratchName()));
}

}  // namespace
}  // namespace velmora
