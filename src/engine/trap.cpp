#include "trap.h"

#include <new>

#include "error_report.h"

namespace velmora {

TrappableError InvalidCallError() { return {5, "Invalid procedure call or argument"}; }
TrappableError OverflowError() { return {6, "Overflow"}; }
TrappableError SubscriptError() { return {9, "Subscript out of range"}; }
TrappableError TypeMismatchError() { return {13, "Type mismatch"}; }

long Error_Code_Of(const std::exception& error) {
  if (auto* own = dynamic_cast<const TrappableError*>(&error)) return own->Code();
  if (dynamic_cast<const std::bad_alloc*>(&error)) return 7;
  if (dynamic_cast<const std::out_of_range*>(&error)) return 9;
  if (dynamic_cast<const std::overflow_error*>(&error)) return 6;
  return 5;
}

void Report_Unexpected(Engine& engine, bool interactive, const std::exception& error,
                       const std::string& location, int kind) {
  Report_Error(engine, interactive, Error_Code_Of(error), error.what(), "Unexpected Trappable Error!", location, kind);
}

}  // namespace velmora
