#include <gtest/gtest.h>

#include "watchdog.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  velmora::Install_Test_Watchdog(60);  // a few tests wait for real programs and timers
  return RUN_ALL_TESTS();
}
