// Ends the test program when one test runs past its time limit, naming the
// test, so that a looping test fails in seconds even when the program is run
// by hand. VELMORA_TEST_TIMEOUT (seconds) overrides the program's limit.
#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace velmora {

class TestWatchdog : public ::testing::EmptyTestEventListener {
 public:
  explicit TestWatchdog(long seconds) : limit_(seconds) {
    std::thread([seconds] {
      for (;; std::this_thread::sleep_for(std::chrono::milliseconds(100))) {
        // A test's start sets its deadline first: the one read next is this test's or a later one's.
        const ::testing::TestInfo* test = running_;
        if (!test || Clock::now().time_since_epoch().count() < deadline_) continue;
        std::fprintf(stderr, "\n[  TIMEOUT ] %s.%s ran longer than %ld s: the test program ends here.\n",
                     test->test_suite_name(), test->name(), seconds);
        std::fflush(stderr);
        std::_Exit(124);
      }
    }).detach();
  }
  void OnTestStart(const ::testing::TestInfo& test) override {
    deadline_ = (Clock::now() + std::chrono::seconds(limit_)).time_since_epoch().count();
    running_ = &test;
  }
  void OnTestEnd(const ::testing::TestInfo&) override { running_ = nullptr; }

 private:
  using Clock = std::chrono::steady_clock;
  // Static: the watching thread runs until the process ends, past the listener.
  static inline std::atomic<const ::testing::TestInfo*> running_{nullptr};
  static inline std::atomic<Clock::rep> deadline_{0};
  long limit_;
};

// Arms the watchdog for every test of this program; call after InitGoogleTest.
inline void Install_Test_Watchdog(long defaultSeconds) {
  const char* text = std::getenv("VELMORA_TEST_TIMEOUT");
  const long seconds = text && std::atol(text) > 0 ? std::atol(text) : defaultSeconds;
  ::testing::UnitTest::GetInstance()->listeners().Append(new TestWatchdog(seconds));
}

}  // namespace velmora
