// The pass over a script before it runs: marks unknown lines, re-indents by
// block depth, pairs block keywords into the block table, and stops at the
// first block error.
#pragma once

namespace velmora {

struct Engine;

// A block error is reported as fatal (which sets StopRunning) and leaves
// LastCommandSucceeded false.
void Preprocess_Commands(Engine& engine, bool Interactive, bool& DebugOn, bool Reformat, bool& LastCommandSucceeded);

}  // namespace velmora
