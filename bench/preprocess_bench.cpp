// Parse and preprocess throughput on generated scripts of 1k to 1M lines.
// The cost per line must not grow with the size of the script.
#include <benchmark/benchmark.h>

#include "parser.h"
#include "preprocessor.h"
#include "bench_counters.h"
#include "scripts.h"
#include "text.h"

namespace velmora::bench {
namespace {


void Preprocess(SimEngine& sim, bool interactive) {
  RunState& run = sim.engine.state;
  Preprocess_Commands(sim.engine, interactive, run.DebugOn, true, run.LastCommandSucceeded);
}

// A generated script that does not preprocess cleanly would measure the
// error paths instead of the pass.
bool Preprocessed_Cleanly(const SimEngine& sim) {
  if (sim.engine.state.StopRunning || sim.engine.LogicalControls.Count() == 0) return false;
  for (const auto& line : sim.engine.TraceWindow.Items())
    if (Starts_With(line, "# ERROR!")) return false;
  return true;
}

// Filling the trace list is what reading the script costs; only the pass is timed.
void BM_Preprocess(benchmark::State& state, bool interactive) {
  const auto count = static_cast<std::size_t>(state.range(0));
  const Lines script = Nested_Script(count);
  SimEngine sim;
  sim.engine.state.InteractiveSession = interactive;
  for (auto _ : state) {
    state.PauseTiming();
    sim.Fill_Trace(script);
    sim.engine.state.StopRunning = false;
    state.ResumeTiming();
    Preprocess(sim, interactive);
  }
  if (!Preprocessed_Cleanly(sim)) state.SkipWithError("the generated script did not preprocess cleanly");
  Report_Lines(state, count);
}

void BM_Preprocess_Automatic(benchmark::State& state) { BM_Preprocess(state, false); }
void BM_Preprocess_Interactive(benchmark::State& state) { BM_Preprocess(state, true); }

// Parse_Command alone over the same lines, as the pass calls it.
void BM_Parse(benchmark::State& state) {
  const auto count = static_cast<std::size_t>(state.range(0));
  const Lines script = Nested_Script(count);
  SimEngine sim;
  ParsedCommand parsed;
  bool allAccepted = true;
  for (auto _ : state) {
    for (std::size_t i = 0; i < count; ++i)
      allAccepted &= Parse_Command(sim.engine, false, script[i], 1.0, parsed, static_cast<std::int32_t>(i));
    benchmark::DoNotOptimize(parsed);
  }
  if (!allAccepted) state.SkipWithError("a generated line was not accepted");
  Report_Lines(state, count);
}

BENCHMARK(BM_Parse)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Preprocess_Automatic)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Preprocess_Interactive)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmora::bench
