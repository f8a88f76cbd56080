#include <gtest/gtest.h>

#include "about.h"
#include "reg_settings.h"
#include "sim_registry.h"

namespace velmora::test {
namespace {

constexpr RegistryRoot kUser = RegistryRoot::CurrentUser;

class RegSettingsTest : public ::testing::Test {
 protected:
  std::string Get(const char* section, const char* key) { return settings.GetSetting(section, key, "(default)"); }
  SimRegistry registry;
  CRegSettings settings{registry};
  const std::string app = "Software\\VB and VBA Program Settings\\" + Product_Name();
};

TEST_F(RegSettingsTest, ReadsTheStoredSizeLessOneCharacter) {
  registry.CreateKey(kUser, app + "\\Bin");
  registry.SetValue(kUser, app + "\\Bin", "v", RegistryType::Binary, "1234");
  // The section, the key, the value saved (nullptr: none) and the value read.
  const std::tuple<const char*, const char*, const char*, const char*> rows[] = {
      {"Editor", "Top", "120", "120"},  // the registry adds the zero the write leaves out
      {"editor", "TOP", nullptr, "120"},    {"Editor", "*", "unnamed", "unnamed"},
      {"A\\B", "Width", "9", "9"},          {"Nowhere", "Top", nullptr, "(default)"},
      {"Editor", "Empty", "", "(default)"},  // stored with size 0
      {"Bin", "v", nullptr, "123"},          // no terminator: one character short
  };
  for (const auto& [section, key, saved, read] : rows) {
    if (saved) {
      EXPECT_TRUE(settings.SaveSetting(section, key, saved));
    }
    EXPECT_EQ(Get(section, key), read) << section << "/" << key;
  }
  EXPECT_EQ(registry.QueryString(kUser, app + "\\Editor", ""), "unnamed");
  EXPECT_EQ(registry.QueryValue(kUser, app + "\\Editor", "Top"), (RegistryValue{RegistryType::String, {"120", 4}}));
}

}  // namespace
}  // namespace velmora::test
