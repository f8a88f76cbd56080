#include "reg_settings.h"

#include "registry.h"
#include "velmora_version.h"

namespace velmora {

namespace {

constexpr const char* kDefaultCompany = "VB and VBA Program Settings";
constexpr const char* kDefaultAppName = VELMORA_PRODUCT_TEXT;
constexpr RegistryRoot kHive = RegistryRoot::CurrentUser;

std::string Trimmed_Or(const std::string& text, const char* fallback) {
  if (text.empty()) return fallback;
  const auto first = text.find_first_not_of(' ');
  if (first == std::string::npos) return std::string();
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// "*" names the key's default (unnamed) value.
std::string Value_Name(const std::string& key) { return key == "*" ? std::string() : key; }

}  // namespace

CRegSettings::CRegSettings(Registry& registry)
    : registry_(registry), company_(kDefaultCompany), appName_(kDefaultAppName) {}

void CRegSettings::SetCompany(const std::string& company) { company_ = Trimmed_Or(company, kDefaultCompany); }

void CRegSettings::SetAppName(const std::string& appName) { appName_ = Trimmed_Or(appName, kDefaultAppName); }

bool CRegSettings::DeleteSetting(const std::string& section, const std::optional<std::string>& key) {
  if (key) return registry_.DeleteValue(kHive, Key_Path(section), Value_Name(*key));
  return registry_.DeleteKey(kHive, Key_Path(section));
}

// The size reported counts a terminating zero, which is dropped without
// looking: a value stored without one loses its last character.
std::string CRegSettings::GetSetting(const std::string& section, const std::string& key,
                                     const std::string& defaultValue) {
  const auto value = registry_.QueryValue(kHive, Key_Path(section), Value_Name(key));
  if (!value || value->bytes.empty()) return defaultValue;
  return value->bytes.substr(0, value->bytes.size() - 1);
}

// Written without the terminating zero in the count.
bool CRegSettings::SaveSetting(const std::string& section, const std::string& key, const std::string& setting) {
  const std::string path = Key_Path(section);
  return registry_.CreateKey(kHive, path) &&
         registry_.SetValue(kHive, path, Value_Name(key), RegistryType::String, setting);
}

std::string CRegSettings::Key_Path(const std::string& section) const {
  std::string path = "Software\\" + company_ + "\\" + appName_;
  if (!section.empty()) path += "\\" + section;
  return path;
}

}  // namespace velmora
