#include "list_scrolling.h"

#include "engine.h"

namespace velmora {

ListScrolling::ListScrolling(Engine& engine)
    : engine_(engine), traceExtent_(engine.TraceWindow, [&engine](const std::string& text) {
        return engine.surface ? engine.surface->MeasureTraceText(text) : 0L;
      }) {}

// The trace list scrolls sideways exactly to the end of its widest line.
void ListScrolling::Set_Trace_HScroll_Bar() {
  EditorSurface* surface = engine_.surface;
  if (!surface) return;
  const long extent = surface->TraceWindowWidth() < traceExtent_.Widest() ? traceExtent_.Widest() + 5 : 0;
  if (extent != traceExtentSent_) surface->SetTraceHorizontalExtent(extent);
  traceExtentSent_ = extent;
}

void ListScrolling::Set_Debug_HScroll_Bar() {
  EditorSurface* surface = engine_.surface;
  const long widest = engine_.editor.WidestDebugLine;
  if (surface && surface->DebugWindowWidth() < widest) surface->SetDebugHorizontalExtent(widest + 5);
}

}  // namespace velmora
