// PLACEHOLDER: replaced by the settings store work.
#include "reg_settings.h"
#include "registry.h"
namespace velmora {
CRegSettings::CRegSettings(Registry& registry) : registry_(registry) {}
void CRegSettings::SetCompany(const std::string& c) { company_ = c; }
void CRegSettings::SetAppName(const std::string& a) { appName_ = a; }
bool CRegSettings::DeleteSetting(const std::string&, const std::optional<std::string>&) { return false; }
std::string CRegSettings::GetSetting(const std::string&, const std::string&, const std::string& d) { return d; }
bool CRegSettings::SaveSetting(const std::string&, const std::string&, const std::string&) { return false; }
std::string CRegSettings::Key_Path(const std::string& s) const { return s; }
}  // namespace velmora
