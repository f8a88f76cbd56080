// The sideways scrolling of the script and debug lists: each scrolls exactly
// to the end of its widest line.
#pragma once

#include "trace_extent.h"

namespace velmora {

struct Engine;

class ListScrolling {
 public:
  explicit ListScrolling(Engine& engine);

  void Set_Trace_HScroll_Bar();
  void Set_Debug_HScroll_Bar();

 private:
  Engine& engine_;
  TraceExtent traceExtent_;
  long traceExtentSent_ = -1;  // the extent last given to the trace list
};

}  // namespace velmora
