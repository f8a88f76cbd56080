// Named text settings under HKEY_CURRENT_USER\Software\<Company>\<AppName>\<Section>.
// The quirks are kept on purpose: the write passes the text's length without
// a terminating zero and the read drops the last character of the stored
// size, so where the registry adds no terminator of its own a value reads
// back one character short.
#pragma once

#include <optional>
#include <string>

namespace velmora {

class Registry;

class CRegSettings {
 public:
  explicit CRegSettings(Registry& registry);

  // An empty text restores the default; any other is kept trimmed.
  void SetCompany(const std::string& company);
  const std::string& Company() const { return company_; }
  void SetAppName(const std::string& appName);
  const std::string& AppName() const { return appName_; }

  // The key name "*" stands for the key's default value. Without a key the
  // whole section is deleted (which fails when it has subkeys).
  bool DeleteSetting(const std::string& section, const std::optional<std::string>& key = std::nullopt);
  std::string GetSetting(const std::string& section, const std::string& key, const std::string& defaultValue);
  bool SaveSetting(const std::string& section, const std::string& key, const std::string& setting);

 private:
  std::string Key_Path(const std::string& section) const;

  Registry& registry_;
  std::string company_;
  std::string appName_;
};

}  // namespace velmora
