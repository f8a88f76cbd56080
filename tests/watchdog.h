// Ends the test program when one test runs past its time limit, naming the
// test, so that a looping test fails in seconds even when the program is run
// by hand. VELMORA_TEST_TIMEOUT (seconds) overrides the program's limit.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>
#include <thread>

namespace velmora {

class TestWatchdog : public ::testing::EmptyTestEventListener {
 public:
  explicit TestWatchdog(long seconds) : limit_(seconds) {
    std::thread([seconds] {
      for (State& state = Shared();; std::this_thread::sleep_for(std::chrono::milliseconds(100))) {
        std::lock_guard lock(state.mutex);
        if (Clock::now() < state.deadline) continue;
        std::fprintf(stderr, "\n[  TIMEOUT ] %s ran longer than %ld s: the test program ends here.\n",
                     state.test.c_str(), seconds);
        std::fflush(stderr);
        std::_Exit(124);
      }
    }).detach();
  }
  void OnTestStart(const ::testing::TestInfo& test) override {
    std::lock_guard lock(Shared().mutex);
    Shared().test = std::string(test.test_suite_name()) + "." + test.name();
    Shared().deadline = Clock::now() + std::chrono::seconds(limit_);
  }
  void OnTestEnd(const ::testing::TestInfo&) override {
    std::lock_guard lock(Shared().mutex);
    Shared().deadline = Clock::time_point::max();
  }

 private:
  using Clock = std::chrono::steady_clock;
  struct State {
    std::mutex mutex;
    std::string test;
    Clock::time_point deadline = Clock::time_point::max();
  };
  // Never destroyed: the watching thread runs until the process ends.
  static State& Shared() {
    static State& state = *new State;
    return state;
  }
  long limit_;
};

// Arms the watchdog for every test of this program; call after InitGoogleTest.
inline void Install_Test_Watchdog(long defaultSeconds) {
  const char* text = std::getenv("VELMORA_TEST_TIMEOUT");
  const long seconds = text && std::atol(text) > 0 ? std::atol(text) : defaultSeconds;
  ::testing::UnitTest::GetInstance()->listeners().Append(new TestWatchdog(seconds));
}

}  // namespace velmora
