// The counters every benchmark here reports, so that tools/bench.sh can read
// them all the same way.
#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>

namespace velmora::bench {

// Lines handled per iteration, lines per second, and seconds per line (shown
// as "123.4ns"): the time of an iteration over the lines it handled.
inline void Report_Lines(benchmark::State& state, std::size_t lines) {
  const auto count = static_cast<double>(lines);
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * lines));
  state.counters["lines"] = count;
  state.counters["time_per_line"] =
      benchmark::Counter(count, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

}  // namespace velmora::bench
