// Errors raised inside a procedure and the trap that turns them into an
// error report at the procedure's own catch-all location.
#pragma once

#include <stdexcept>
#include <string>

namespace velmora {

struct Engine;

constexpr int kFatal = 0;   // report kind: an automatic session ends, an interactive run stops
constexpr int kGoOn = 1;    // report kind: the program goes on

// A run-time error with the code that its report shows.
class TrappableError : public std::runtime_error {
 public:
  TrappableError(long code, const std::string& text) : std::runtime_error(text), code_(code) {}
  long Code() const { return code_; }

 private:
  long code_;
};

// The run-time errors the engine raises itself, with their conventional codes.
TrappableError InvalidCallError();   // 5
TrappableError OverflowError();      // 6
TrappableError SubscriptError();     // 9
TrappableError TypeMismatchError();  // 13

// The code that a report shows for a caught exception.
long Error_Code_Of(const std::exception& error);

// Reports a caught exception as "Unexpected Trappable Error!" at the location.
void Report_Unexpected(Engine& engine, bool interactive, const std::exception& error,
                       const std::string& location, int kind);

// Runs the body; any std::exception it throws is reported at the location.
// ProcessEnded is not a std::exception and passes through.
template <class Body>
void Trap(Engine& engine, bool interactive, const std::string& location, int kind, Body&& body) {
  try {
    body();
  } catch (const std::exception& error) {
    Report_Unexpected(engine, interactive, error, location, kind);
  }
}

}  // namespace velmora
