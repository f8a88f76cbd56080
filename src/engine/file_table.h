// The numbered text files of a session: numbers 1 to 511, the lowest free
// number first, as the scripts' file layer hands them out.
#pragma once

#include <array>
#include <memory>

#include "host.h"
#include "run_state.h"

namespace velmora {

class FileTable {
 public:
  static constexpr FileNumber kHighest = 511;

  // The lowest free number, or 0 when all are taken.
  FileNumber FreeNumber() const;
  void Attach(FileNumber number, std::unique_ptr<TextFile> file);
  // The open file of that number, or nullptr.
  TextFile* Find(FileNumber number) const;
  std::unique_ptr<TextFile> Detach(FileNumber number);

 private:
  std::array<std::unique_ptr<TextFile>, kHighest + 1> files_{};
};

}  // namespace velmora
