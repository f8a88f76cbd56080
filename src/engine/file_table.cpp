#include "file_table.h"

namespace velmora {

FileNumber FileTable::FreeNumber() const {
  for (FileNumber n = 1; n <= kHighest; ++n)
    if (!files_[n]) return n;
  return 0;
}

void FileTable::Attach(FileNumber number, std::unique_ptr<TextFile> file) { files_.at(number) = std::move(file); }

TextFile* FileTable::Find(FileNumber number) const { return number <= kHighest ? files_[number].get() : nullptr; }

std::unique_ptr<TextFile> FileTable::Detach(FileNumber number) {
  if (number > kHighest) return nullptr;
  return std::move(files_[number]);
}

}  // namespace velmora
