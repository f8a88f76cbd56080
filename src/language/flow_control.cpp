#include "flow_control.h"

#include "block_table.h"
#include "debug_log.h"
#include "engine.h"
#include "session.h"
#include "trap.h"

namespace velmora {

namespace {

// Logs what the script wished and what happened; true when they agree.
bool Condition_Holds(Engine& engine, bool interactive, bool lastSucceeded, const std::string& parameter) {
  const bool wishSuccess = parameter == "succeeded";
  Log_Trace(engine, interactive,
      wishSuccess ? "  -- Wish the Previous Command to Succeed!" : "  -- Wish the Previous Command to Fail!");
  Log_Trace(engine, interactive, lastSucceeded ? "  -- Previous Command Succeeded!" : "  -- Previous Command Failed!");
  return wishSuccess ? lastSucceeded : !lastSucceeded;
}

long Current_Line(Engine& engine) { return engine.TraceWindow.Selected(); }

// The record of the given kind in which the current line stands at the given
// place (first, middle or last keyword line), if there is one.
bool Find_Record(Engine& engine, char kind, long BlockLines::*place, BlockLines& found) {
  const long line = Current_Line(engine);
  const std::int32_t item = Block_Item_Of_Line(engine, line);
  if (item < 0) return false;
  found = Read_Block_Item(engine.LogicalControls.Item(item));
  return found.kind == kind && found.*place == line;
}

// Selects a target line that the record must name.
void Select_Target(Engine& engine, long line) {
  if (line < 0) throw SubscriptError();  // a block the table never closed
  engine.TraceWindow.Select(line);
}

}  // namespace

void If_Command(Engine& engine, bool Interactive, bool LastCommandSucceeded, const std::string& Parameter) {
  Trap(engine, Interactive, "Velmora.(General).If_Command.TrappableErrors.1", kFatal, [&] {
    if (Condition_Holds(engine, Interactive, LastCommandSucceeded, Parameter)) {
      Log_Trace(engine, Interactive, "  -- Executing THEN Prortion of If...");
      return;
    }
    Log_Trace(engine, Interactive, "  -- Executing ELSE Prortion of If...");
    BlockLines record;
    if (Find_Record(engine, 'i', &BlockLines::first, record))
      Select_Target(engine, record.state == 'e' ? record.middle : record.last);
  });
}

void Else_Command(Engine& engine, bool Interactive) {
  Trap(engine, Interactive, "Velmora.(General).Else_Command.TrappableErrors.1", kFatal, [&] {
    BlockLines record;
    if (Find_Record(engine, 'i', &BlockLines::middle, record)) Select_Target(engine, record.last);
  });
}

void While_Command(Engine& engine, bool Interactive, bool LastCommandSucceeded, const std::string& Parameter) {
  Trap(engine, Interactive, "Velmora.(General).While_Command.TrappableErrors.1", kFatal, [&] {
    if (Condition_Holds(engine, Interactive, LastCommandSucceeded, Parameter)) {
      Log_Trace(engine, Interactive, "  -- Executing While Loop...");
      Pause_Tenths(engine, 1);
      return;
    }
    Log_Trace(engine, Interactive, "  -- Skipping While Loop.");
    BlockLines record;
    if (Find_Record(engine, 'w', &BlockLines::first, record)) Select_Target(engine, record.last);
  });
}

// Back to the line before the while, so that the while is the next line run
// and tests its condition again.
void EndWhile_Command(Engine& engine, bool Interactive) {
  Trap(engine, Interactive, "Velmora.(General).EndWhile_Command.TrappableErrors.1", kFatal, [&] {
    BlockLines record;
    if (Find_Record(engine, 'w', &BlockLines::last, record)) engine.TraceWindow.Select(record.first - 1);
  });
}

void Until_Command(Engine& engine, bool Interactive, bool LastCommandSucceeded, const std::string& Parameter) {
  Trap(engine, Interactive, "Velmora.(General).Until_Command.TrappableErrors.1", kFatal, [&] {
    if (Condition_Holds(engine, Interactive, LastCommandSucceeded, Parameter)) {
      Log_Trace(engine, Interactive, "  -- Exiting Repeat-Until.");
      return;
    }
    Log_Trace(engine, Interactive, "  -- Repeating Repeat-Until...");
    Pause_Tenths(engine, 1);
    BlockLines record;
    if (Find_Record(engine, 'r', &BlockLines::last, record)) Select_Target(engine, record.first);
  });
}

}  // namespace velmora
