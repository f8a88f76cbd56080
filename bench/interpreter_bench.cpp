// Interpreter overhead per executed line on the simulated clock: the host's
// sleeps cost nothing, so what is measured is parsing, logging, dispatch and
// the move to the next line. Each is run with the debug log written to the
// in-memory debug file and with no debug file ("nofile"), and set against
// bare walks over the same script.
#include <benchmark/benchmark.h>

#include "bench_counters.h"
#include "interpreter.h"
#include "parser.h"
#include "preprocessor.h"
#include "scripts.h"
#include "session.h"

namespace velmora::bench {
namespace {

constexpr std::size_t kTrimEvery = 4096;  // executed lines between trims of the in-memory records

// An automatic session ready to run its first line: the script read into
// the trace list, preprocessed and line 0 selected.
void Start(SimEngine& sim, const Lines& script) {
  RunState& run = sim.engine.state;
  sim.Fill_Trace(script);
  run.StopRunning = false;
  run.DebugOn = true;
  Preprocess_Commands(sim.engine, false, run.DebugOn, true, run.LastCommandSucceeded);
  sim.engine.TraceWindow.Select(0);
}

void Run_Line(SimEngine& sim) {
  RunState& run = sim.engine.state;
  Process_Command(sim.engine, false, run.DebugOn, run.ScriptFileNumber, run.DebugFileNumber, run.LastCommandSucceeded);
}

// The move to the next line alone, as Process_Command ends; past the end the
// walk starts again at line 0.
void Walk(Engine& engine) {
  const long next = Next_Executeable_Statement(engine, engine.TraceWindow.Selected());
  engine.TraceWindow.Select(next == -1 ? 0 : next);
}

void Report_Simulated_Clock(benchmark::State& state, const SimHost& host, double lines) {
  state.counters["sim_ms_per_line"] = lines > 0 ? static_cast<double>(host.clockMs) / lines : 0;
}

// One benchmark iteration is one line of the endless loop: Process_Command
// with the debug log to the in-memory file (debugFile) or to nothing.
void BM_Interpreter_Loop(benchmark::State& state, bool debugFile) {
  SimEngine sim;
  if (debugFile) sim.Open_Debug_File();
  Start(sim, Endless_Loop_Script());
  std::size_t executed = 0;
  for (auto _ : state) {
    Run_Line(sim);
    if (++executed % kTrimEvery == 0) sim.Trim_Records();
  }
  if (sim.engine.state.StopRunning) state.SkipWithError("the endless loop stopped");
  Report_Lines(state, 1);
  Report_Simulated_Clock(state, sim.host, static_cast<double>(executed));
}

void BM_Interpreter_Loop_DebugFile(benchmark::State& state) { BM_Interpreter_Loop(state, true); }
void BM_Interpreter_Loop_NoFile(benchmark::State& state) { BM_Interpreter_Loop(state, false); }

// Baseline: the selection moves line by line over the same loop script.
void BM_Baseline_Walk_Loop(benchmark::State& state) {
  SimEngine sim;
  Start(sim, Endless_Loop_Script());
  for (auto _ : state) Walk(sim.engine);
  Report_Lines(state, 1);
}

// Baseline: Parse_Command of the selected line, then the move.
void BM_Baseline_Parse_Walk_Loop(benchmark::State& state) {
  SimEngine sim;
  Start(sim, Endless_Loop_Script());
  Engine& engine = sim.engine;
  ParsedCommand parsed;
  for (auto _ : state) {
    const long current = engine.TraceWindow.Selected();
    Parse_Command(engine, false, engine.TraceWindow.Item(current), 1.0, parsed, current);
    benchmark::DoNotOptimize(parsed);
    Walk(engine);
  }
  Report_Lines(state, 1);
}

// A straight-line script run from its first line until StopRunning. Only the
// run is timed; loading and preprocessing are not.
void BM_Interpreter_Straight(benchmark::State& state, bool debugFile) {
  const Lines script = Straight_Script(static_cast<std::size_t>(state.range(0)));
  SimEngine sim;
  if (debugFile) sim.Open_Debug_File();
  std::size_t executed = 0;
  for (auto _ : state) {
    state.PauseTiming();
    Start(sim, script);
    sim.Trim_Records();
    executed = 0;
    state.ResumeTiming();
    while (!sim.engine.state.StopRunning) {
      Run_Line(sim);
      if (++executed % kTrimEvery == 0) sim.Trim_Records();
    }
  }
  // The run must have reached the end of the script, not a fatal error.
  if (sim.engine.TraceWindow.Selected() != static_cast<long>(script.size()) - 1 || executed < script.size() / 2)
    state.SkipWithError("the straight script did not run to its end");
  Report_Lines(state, executed);
  state.counters["script_lines"] = static_cast<double>(script.size());
}

void BM_Interpreter_Straight_DebugFile(benchmark::State& state) { BM_Interpreter_Straight(state, true); }
void BM_Interpreter_Straight_NoFile(benchmark::State& state) { BM_Interpreter_Straight(state, false); }

// Baseline for the straight scripts: the walk from line 0 to the end.
void BM_Baseline_Walk_Straight(benchmark::State& state) {
  const Lines script = Straight_Script(static_cast<std::size_t>(state.range(0)));
  SimEngine sim;
  Start(sim, script);
  Engine& engine = sim.engine;
  std::size_t walked = 0;
  for (auto _ : state) {
    walked = 0;
    engine.TraceWindow.Select(0);
    for (long line = 0; line != -1; line = Next_Executeable_Statement(engine, line)) {
      engine.TraceWindow.Select(line);
      ++walked;
    }
  }
  Report_Lines(state, walked);
}

BENCHMARK(BM_Baseline_Walk_Loop);
BENCHMARK(BM_Baseline_Parse_Walk_Loop);
BENCHMARK(BM_Interpreter_Loop_NoFile);
BENCHMARK(BM_Interpreter_Loop_DebugFile);
BENCHMARK(BM_Baseline_Walk_Straight)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Interpreter_Straight_NoFile)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Interpreter_Straight_DebugFile)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmora::bench
