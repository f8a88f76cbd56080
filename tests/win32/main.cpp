// The test program's entry. With "--sleep <ms>" it only sleeps and exits with
// status 7: the StartProgram tests start it as a program that takes its time.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <thread>

#include "watchdog.h"

int main(int argc, char** argv) {
  if (argc == 3 && std::strcmp(argv[1], "--sleep") == 0) {
    std::this_thread::sleep_for(std::chrono::milliseconds(std::atoi(argv[2])));
    return 7;
  }
  testing::InitGoogleTest(&argc, argv);
  velmora::Install_Test_Watchdog(60);  // a few tests wait for real programs and timers
  return RUN_ALL_TESTS();
}
