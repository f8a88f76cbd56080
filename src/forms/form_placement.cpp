#include "form_placement.h"

#include "host.h"
#include "numeric.h"
#include "reg_settings.h"

namespace velmora {

namespace {

// A stored number, or the default when it is missing or damaged.
long Setting_Number(CRegSettings& settings, const char* section, const char* key, long defaultValue) {
  const std::string text = settings.GetSetting(section, key, std::to_string(defaultValue));
  const auto value = Numeric_Value(text);
  if (!value) return defaultValue;
  try {
    return Rounded_To<std::int32_t>(*value);
  } catch (const std::exception&) {
    return defaultValue;
  }
}

}  // namespace

void Restore_Form_Placement(CRegSettings& settings, const char* section, FormWindow& window) {
  const auto state = Setting_Number(settings, section, "WindowState", static_cast<long>(window.State()));
  window.SetState(state == 2 ? WindowState::Maximized : WindowState::Normal);
  const TwipsRect current = window.Placement();
  TwipsRect placement;
  placement.Top = Setting_Number(settings, section, "Top", (window.ScreenHeight() - current.Height) / 2);
  placement.Left = Setting_Number(settings, section, "Left", (window.ScreenWidth() - current.Width) / 2);
  placement.Height = Setting_Number(settings, section, "Height", current.Height);
  placement.Width = Setting_Number(settings, section, "Width", current.Width);
  window.SetPlacement(placement);
}

// The restored place is stored, so that a form closed minimised or maximised
// comes back where it was before, not at the icon's place or the screen's edge.
void Save_Form_Placement(CRegSettings& settings, const char* section, FormWindow& window) {
  const TwipsRect form = window.RestoredPlacement();
  const WindowState state = window.State();
  const auto save_edge = [&](const char* key, long edge, long screen) {
    settings.SaveSetting(section, key, std::to_string(edge >= 0 && edge < screen ? edge : 0));
  };
  save_edge("Top", form.Top, window.ScreenHeight());
  save_edge("Left", form.Left, window.ScreenWidth());
  settings.SaveSetting(section, "Height", std::to_string(form.Height));
  settings.SaveSetting(section, "Width", std::to_string(form.Width));
  settings.SaveSetting(section, "WindowState", state == WindowState::Maximized ? "2" : "0");
}

std::string Stored_File_Name(CRegSettings& settings, Host& host, const char* section, const char* key) {
  const std::string stored = settings.GetSetting(section, key, "");
  if (stored.size() < 2) return {};
  const std::string name = stored.substr(1, stored.size() - 2);
  return host.FileExists(name) ? Quoted(name) : std::string();
}

std::string Quoted(const std::string& name) { return '"' + name + '"'; }

std::string Unquoted(const std::string& name) {
  if (name.size() >= 2 && name.front() == '"' && name.back() == '"') return name.substr(1, name.size() - 2);
  return name;
}

void Change_To_Folder_Of(Host& host, const std::string& quotedName) {
  const std::string name = Unquoted(quotedName);
  const auto slash = name.find_last_of('\\');
  if (name.empty() || slash == std::string::npos) return;
  const std::string folder = slash == 2 && name[1] == ':' ? name.substr(0, 3) : name.substr(0, slash);
  // A folder that is gone leaves the dialog where it was: not worth a report.
  SystemError ignored;
  if (name.size() > 1 && name[1] == ':') host.ChangeDrive(name.substr(0, 1), ignored);
  host.ChangeDirectory(folder, ignored);
}

}  // namespace velmora
