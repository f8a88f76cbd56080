// Ends the test program when one test runs past its time limit, naming the
// test, so that a looping test fails in seconds even when the program is run
// by hand. VELMORA_TEST_TIMEOUT (seconds) overrides the program's limit.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>
#include <thread>

namespace velmora {

class TestWatchdog : public ::testing::EmptyTestEventListener {
 public:
  explicit TestWatchdog(long seconds) : limit_(seconds) {
    // The state outlives the listener, which the test framework destroys at exit.
    std::thread([state = state_, limit = limit_] { Watch(*state, limit); }).detach();
  }
  void OnTestStart(const ::testing::TestInfo& test) override {
    std::lock_guard lock(state_->mutex);
    state_->name = std::string(test.test_suite_name()) + "." + test.name();
    state_->deadline = Clock::now() + std::chrono::seconds(limit_);
    state_->armed = true;
    state_->changed.notify_one();
  }
  void OnTestEnd(const ::testing::TestInfo&) override {
    std::lock_guard lock(state_->mutex);
    state_->armed = false;
  }

 private:
  using Clock = std::chrono::steady_clock;
  struct State {
    std::mutex mutex;
    std::condition_variable changed;
    std::string name;
    Clock::time_point deadline;
    bool armed = false;
  };
  static void Watch(State& state, long limit) {
    std::unique_lock lock(state.mutex);
    for (;;) {
      if (!state.armed) {
        state.changed.wait(lock);
      } else if (Clock::now() < state.deadline) {
        state.changed.wait_until(lock, state.deadline);
      } else {
        std::fprintf(stderr, "\n[  TIMEOUT ] %s ran longer than %ld s: the test program ends here.\n",
                     state.name.c_str(), limit);
        std::fflush(stderr);
        std::_Exit(124);
      }
    }
  }
  long limit_;
  State* state_ = new State;  // never freed: the watching thread runs until the process ends
};

// Arms the watchdog for every test of this program; call after InitGoogleTest.
inline void Install_Test_Watchdog(long defaultSeconds) {
  const char* text = std::getenv("VELMORA_TEST_TIMEOUT");
  const long seconds = text && std::atol(text) > 0 ? std::atol(text) : defaultSeconds;
  ::testing::UnitTest::GetInstance()->listeners().Append(new TestWatchdog(seconds));
}

}  // namespace velmora
