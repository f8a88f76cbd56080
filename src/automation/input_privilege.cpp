#include "input_privilege.h"

#include "debug_log.h"
#include "engine.h"
#include "screen_point.h"

namespace velmora {

void Note_Input_Barrier(Engine& engine, Desktop& desktop, bool interactive, WindowHandle window) {
  if (window == 0 || !desktop.RunsAtHigherIntegrity(window)) return;
  Log_Always(engine, interactive,
             "Info: The target window belongs to a program running at a higher integrity level (elevated) than "
             "Velmora: Windows drops the keys and clicks sent to it. Run Velmora as administrator.");
}

WindowHandle Window_At_Mouse_Position(Desktop& desktop, long x, long y) {
  return desktop.WindowFromPoint(
      {Pixel_Of_Mouse_Share(x, desktop.ScreenWidth()), Pixel_Of_Mouse_Share(y, desktop.ScreenHeight())});
}

}  // namespace velmora
