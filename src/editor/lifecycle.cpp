// The editor's life: its own loading after the engine's start-up, the layout
// when its size changes, and what it keeps and closes when it is closed.
#include <string>

#include "careful_io.h"
#include "debug_log.h"
#include "editor_form.h"
#include "editor_layout.h"
#include "engine.h"
#include "numeric.h"
#include "reg_settings.h"
#include "trap.h"
#include "velmora_version.h"

namespace velmora {

namespace {

constexpr const char* kSection = "Editor";

// A stored number, or the default when it is missing or damaged.
long Setting_Number(CRegSettings& settings, const char* key, long defaultValue) {
  const std::string text = settings.GetSetting(kSection, key, std::to_string(defaultValue));
  const auto value = Numeric_Value(text);
  if (!value) return defaultValue;
  try {
    return Rounded_To<std::int32_t>(*value);
  } catch (const std::exception&) {
    return defaultValue;
  }
}

// A stored file name, kept only when the file is still there.
std::string Stored_File_Name(CRegSettings& settings, Host& host, const char* key) {
  const std::string stored = settings.GetSetting(kSection, key, "");
  if (stored.size() < 2) return {};
  const std::string name = stored.substr(1, stored.size() - 2);
  return host.FileExists(name) ? '"' + name + '"' : std::string();
}

}  // namespace

EditorForm::EditorForm(Engine& engine, FormControls& controls, FormWindow& window, FileDialogs& dialogs,
                       CRegSettings& settings)
    : engine_(engine),
      controls_(controls),
      window_(window),
      dialogs_(dialogs),
      settings_(settings),
      traceExtent_(engine.TraceWindow, [&engine](const std::string& text) {
        return engine.surface ? engine.surface->MeasureTraceText(text) : 0L;
      }) {}

void EditorForm::Form_Load_Interactive() {
  controls_.SetCaption(ControlId::VersionLabel, "Version:  " + std::to_string(VELMORA_VERSION_MAJOR) + "." +
                                                    std::to_string(VELMORA_VERSION_MINOR) + "." +
                                                    std::to_string(VELMORA_VERSION_PATCH));
  const std::string program = engine_.host.ProgramPath();
  const auto slash = program.find_last_of('\\');
  HelpFile = (slash == std::string::npos ? std::string() : program.substr(0, slash)) + "\\Velmora.chm";
  engine_.host.DoEvents();

  ScriptChanged = false;
  DebugFileOpen = false;
  controls_.SetEnabled(ControlId::SaveScriptButton, false);
  Set_Control_State("DisableCommands");
  Set_Control_State("TraceControls", false);
  for (ControlId id : {ControlId::TraceFrame, ControlId::TraceWindow, ControlId::DebugFrame, ControlId::DebugWindow})
    controls_.SetEnabled(id, false);
  Load_Commands(1);
  Restore_Placement();
  Restore_File_Names();
  Show_File_Labels();
  if (!engine_.editor.ScriptFileName.empty()) {
    StartupLoad = true;
    Open_Script_File();
    StartupLoad = false;
  }
}

void EditorForm::Restore_Placement() {
  const auto state = Setting_Number(settings_, "WindowState", static_cast<long>(window_.State()));
  window_.SetState(state == 2 ? WindowState::Maximized : WindowState::Normal);
  const TwipsRect current = window_.Placement();
  TwipsRect placement;
  placement.Top = Setting_Number(settings_, "Top", (window_.ScreenHeight() - current.Height) / 2);
  placement.Left = Setting_Number(settings_, "Left", (window_.ScreenWidth() - current.Width) / 2);
  placement.Height = Setting_Number(settings_, "Height", current.Height);
  placement.Width = Setting_Number(settings_, "Width", current.Width);
  window_.SetPlacement(placement);
}

// A script named on the command line wins over the remembered one.
void EditorForm::Restore_File_Names() {
  const std::string script = Stored_File_Name(settings_, engine_.host, "Script File");
  const std::string debug = Stored_File_Name(settings_, engine_.host, "Debug File");
  if (engine_.editor.ScriptFileName.empty()) engine_.editor.ScriptFileName = script;
  engine_.editor.DebugFileName = debug;
  DebugPromptPending = !debug.empty();
}

void EditorForm::Form_Resize() {
  if (window_.State() == WindowState::Minimized) return;
  TwipsRect form = window_.Placement();
  const bool maximized = window_.State() == WindowState::Maximized;
  bool snapped = false;
  if (form.Width < kMinimumFormWidth && (!maximized || window_.ScreenWidth() > kMinimumFormWidth - 1)) {
    form.Width = kMinimumFormWidth;
    snapped = true;
  }
  if (form.Height < kMinimumFormHeight && (!maximized || window_.ScreenHeight() > kMinimumFormHeight - 1)) {
    form.Height = kMinimumFormHeight;
    snapped = true;
  }
  if (snapped) window_.SetPlacement(form);

  const auto width_of = [&](ControlId id, long width) {
    TwipsRect rect = controls_[id].Rect;
    rect.Width = width;
    controls_.SetRect(id, rect);
  };
  width_of(ControlId::ScriptFileLabel, form.Width - 4065);
  width_of(ControlId::ScriptCover, controls_[ControlId::ScriptFileLabel].Rect.Width);
  width_of(ControlId::TraceFrame, form.Width - 4210);
  width_of(ControlId::TraceWindow, controls_[ControlId::TraceFrame].Rect.Width - 80);
  width_of(ControlId::DebugFrame, form.Width - 175);
  width_of(ControlId::DebugWindow, controls_[ControlId::DebugFrame].Rect.Width - 80);
  TwipsRect debugFrame = controls_[ControlId::DebugFrame].Rect;
  debugFrame.Height = form.Height - 6995;
  controls_.SetRect(ControlId::DebugFrame, debugFrame);
  TwipsRect debugWindow = controls_[ControlId::DebugWindow].Rect;
  debugWindow.Height = debugFrame.Height - 280;
  controls_.SetRect(ControlId::DebugWindow, debugWindow);

  Set_Trace_HScroll_Bar();
  Set_Debug_HScroll_Bar();
}

// The trace list scrolls sideways exactly to the end of its widest line.
void EditorForm::Set_Trace_HScroll_Bar() {
  EditorSurface* surface = engine_.surface;
  if (!surface) return;
  const long extent = surface->TraceWindowWidth() < traceExtent_.Widest() ? traceExtent_.Widest() + 5 : 0;
  if (extent != traceExtentSent_) surface->SetTraceHorizontalExtent(extent);
  traceExtentSent_ = extent;
}

void EditorForm::Set_Debug_HScroll_Bar() {
  EditorSurface* surface = engine_.surface;
  const long widest = engine_.editor.WidestDebugLine;
  if (surface && surface->DebugWindowWidth() < widest) surface->SetDebugHorizontalExtent(widest + 5);
}

void EditorForm::Form_QueryUnload() {
  engine_.host.Beep();
  Save_Placement();
  Log_Always(engine_, true, "Info: Editor shut down!" + Date_Time_Stamp(engine_));
  if (ScriptChanged) Save_Script_File();
  if (DebugFileOpen) Close_Debug_File();
  settings_.SaveSetting(kSection, "Script File", engine_.editor.ScriptFileName);
  settings_.SaveSetting(kSection, "Debug File", engine_.editor.DebugFileName);
}

// An edge on the screen is kept; one off it is kept as 0, except that a
// minimised form leaves the stored value alone.
void EditorForm::Save_Placement() {
  const TwipsRect form = window_.Placement();
  const WindowState state = window_.State();
  const auto save_edge = [&](const char* key, long edge, long screen) {
    if (edge >= 0 && edge < screen)
      settings_.SaveSetting(kSection, key, std::to_string(edge));
    else if (state != WindowState::Minimized)
      settings_.SaveSetting(kSection, key, "0");
  };
  save_edge("Top", form.Top, window_.ScreenHeight());
  save_edge("Left", form.Left, window_.ScreenWidth());
  settings_.SaveSetting(kSection, "Height", std::to_string(form.Height));
  settings_.SaveSetting(kSection, "Width", std::to_string(form.Width));
  settings_.SaveSetting(kSection, "WindowState", state == WindowState::Maximized ? "2" : "0");
}

}  // namespace velmora
