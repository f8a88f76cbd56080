// An engine on the simulated platform, with helpers to run it as a session.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine.h"
#include "sim_host.h"
#include "sim_registry.h"

namespace velmora::testing {

// Records what the engine asked of the editor's window: 7 pixels a character,
// lists 300 pixels wide, and only Courier New of the fonts asked for installed.
class FakeSurface : public EditorSurface {
 public:
  std::vector<long> extents;
  int debugFrameEnabled = 0;
  std::vector<std::string> fonts;

  long MeasureDebugText(const std::string& text) override { return static_cast<long>(text.size()) * 7; }
  long DebugWindowWidth() override { return 300; }
  void SetDebugHorizontalExtent(long pixels) override { extents.push_back(pixels); }
  void EnableDebugFrame() override { ++debugFrameEnabled; }
  long MeasureTraceText(const std::string& text) override { return static_cast<long>(text.size()) * 7; }
  long TraceWindowWidth() override { return 300; }
  void SetTraceHorizontalExtent(long) override {}
  std::string SetTraceFont(const std::string& name) override {
    fonts.push_back(name);
    return name == "Courier New" ? name : "System";
  }
};

class EngineTest : public ::testing::Test {
 protected:
  SimHost host;
  SimRegistry registry;
  Engine engine{host, registry};

  // Runs the body and returns the exit status if it ended the process, -1 otherwise.
  template <class Body>
  int Exit_Status_Of(Body&& body) {
    try {
      body();
    } catch (const ProcessEnded& ended) {
      return ended.exitCode;
    }
    return -1;
  }

  std::vector<std::string> Log(const std::string& path = "a.vld") const { return host.Lines(path); }
};

// An interactive engine with debug output on, as the editor runs it.
class InteractiveTest : public EngineTest {
 protected:
  InteractiveTest() { engine.state.InteractiveSession = engine.state.DebugOn = true; }
};

// The framed block of an error report, line by line.
std::vector<std::string> Fatal_Block(const std::string& message, long code, const std::string& location);
std::vector<std::string> Go_On_Block(const std::string& message, long code, const std::string& location,
                                     bool closed = true);

}  // namespace velmora::testing
