// The interactive session's window until the script editor takes its place:
// the trace list above the debug list, both mirroring the engine's models.
#pragma once

#include <windows.h>

#include <memory>

#include "editor_surface.h"
#include "list_box_mirror.h"
#include "win32_handles.h"

namespace velmora {

struct Engine;

class SessionWindow : public EditorSurface {
 public:
  explicit SessionWindow(Engine& engine) : engine_(engine) {}
  ~SessionWindow() override;

  bool Create(HINSTANCE instance, int show);

  long MeasureDebugText(const std::string& text) override;
  long DebugWindowWidth() override;
  void SetDebugHorizontalExtent(long pixels) override;
  void EnableDebugFrame() override;
  std::string SetTraceFont(const std::string& name) override;
  long MeasureTraceText(const std::string&) override { return 0; }
  long TraceWindowWidth() override { return 0; }
  void SetTraceHorizontalExtent(long) override {}

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void Layout();

  Engine& engine_;
  HWND window_ = nullptr;
  HWND traceList_ = nullptr;
  HWND debugList_ = nullptr;
  ScopedFont traceFont_;
  std::unique_ptr<ListBoxMirror> traceMirror_;
  std::unique_ptr<ListBoxMirror> debugMirror_;
};

}  // namespace velmora
