#include <gtest/gtest.h>

#include "watchdog.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  velmora::Install_Test_Watchdog(10);  // the slowest test takes about a second under the sanitizers
  return RUN_ALL_TESTS();
}
