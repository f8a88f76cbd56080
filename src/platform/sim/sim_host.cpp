#include "sim_host.h"

#include <stdexcept>

namespace velmora {

namespace {

class SimFile : public TextFile {
 public:
  SimFile(SimHost& host, std::string path, FileMode mode) : host_(host), path_(std::move(path)), mode_(mode) {}

  bool AtEnd() override { return mode_ == FileMode::Output || position_ >= Content().size(); }

  bool ReadLine(std::string& line, SystemError& error) override {
    const std::string& text = Content();
    if (mode_ != FileMode::Input) return Fail(error, {54, "Bad file mode"});
    if (position_ >= text.size()) return Fail(error, {62, "Input past end of file"});
    const auto end = text.find_first_of("\r\n", position_);
    line = text.substr(position_, end == std::string::npos ? std::string::npos : end - position_);
    position_ = end == std::string::npos ? text.size() : end + 1;
    if (end != std::string::npos && text[end] == '\r' && position_ < text.size() && text[position_] == '\n')
      ++position_;
    return true;
  }

  bool Write(std::string_view text, SystemError& error) override {
    if (mode_ != FileMode::Output) return Fail(error, {54, "Bad file mode"});
    if (host_.unwritable.count(path_)) return Fail(error, {57, "Device I/O error"});
    host_.files[path_].append(text);
    return true;
  }

  bool Close(SystemError& error) override {
    if (host_.unclosable.count(path_)) return Fail(error, {57, "Device I/O error"});
    return true;
  }

 private:
  const std::string& Content() { return host_.files[path_]; }
  static bool Fail(SystemError& error, SystemError what) {
    error = std::move(what);
    return false;
  }

  SimHost& host_;
  std::string path_;
  FileMode mode_;
  std::size_t position_ = 0;
};

}  // namespace

std::optional<std::string> SimHost::GetEnv(const std::string& name) {
  const auto it = environment.find(name);
  if (it == environment.end()) return std::nullopt;
  return it->second;
}

std::unique_ptr<TextFile> SimHost::OpenText(const std::string& path, FileMode mode, SystemError& error) {
  if (unopenable.count(path) || path.empty()) {
    error = PathNotFound();
    return nullptr;
  }
  if (mode == FileMode::Input && !files.count(path)) {
    error = NotFound();
    return nullptr;
  }
  if (mode == FileMode::Output) files[path].clear();
  return std::make_unique<SimFile>(*this, path, mode);
}

bool SimHost::RenameFile(const std::string& from, const std::string& to, SystemError& error) {
  if (throwFromFileOperations) throw std::runtime_error("Simulated failure");
  operations.push_back("rename " + from + " " + to);
  const auto it = files.find(from);
  if (it == files.end() || files.count(to)) {
    error = it == files.end() ? NotFound() : SystemError{58, "File already exists"};
    return false;
  }
  files[to] = it->second;
  files.erase(from);
  return true;
}

bool SimHost::DeleteFiles(const std::string& pattern, SystemError& error) {
  if (throwFromFileOperations) throw std::runtime_error("Simulated failure");
  operations.push_back("delete " + pattern);
  if (!files.erase(pattern)) {
    error = NotFound();
    return false;
  }
  return true;
}

bool SimHost::CopyOneFile(const std::string& from, const std::string& to, SystemError& error) {
  if (throwFromFileOperations) throw std::runtime_error("Simulated failure");
  operations.push_back("copy " + from + " " + to);
  const auto it = files.find(from);
  if (it == files.end()) {
    error = NotFound();
    return false;
  }
  files[to] = it->second;
  return true;
}

bool SimHost::ChangeDirectory(const std::string& path, SystemError& error) {
  operations.push_back("chdir " + path);
  if (unopenable.count(path)) {
    error = PathNotFound();
    return false;
  }
  currentDirectory = path;
  return true;
}

bool SimHost::ChangeDrive(const std::string& drive, SystemError& error) {
  operations.push_back("chdrive " + drive);
  if (drive.empty() || unopenable.count(drive)) {
    error = {68, "Device unavailable"};
    return false;
  }
  return true;
}

long SimHost::StartProgram(const std::string& line, WindowStyle, SystemError& error) {
  if (!startOutcomes.empty()) {
    const bool starts = startOutcomes.front();
    startOutcomes.pop_front();
    if (!starts) {
      error = NotFound();
      return -1;
    }
  }
  if (const auto failure = startFailures.find(line); failure != startFailures.end()) {
    error = failure->second;
    return -1;
  }
  if (unstartable.count(line) || line.empty()) {
    error = NotFound();
    return -1;
  }
  startedPrograms.push_back(line);
  return 1000 + static_cast<long>(startedPrograms.size());
}

ProgramFile SimHost::InspectProgram(const std::string& path) {
  const auto it = programFiles.find(path);
  return it == programFiles.end() ? ProgramFile{} : it->second;
}

void SimHost::Sleep(int milliseconds) {
  ++sleeps;
  if (milliseconds == 95) ++tenthSleeps;
  if (milliseconds <= 0) return;
  clockMs += milliseconds;
  sleptMs += milliseconds;
}

std::vector<std::string> SimHost::Lines(const std::string& path) const {
  std::vector<std::string> lines;
  const auto it = files.find(path);
  if (it == files.end()) return lines;
  const std::string& text = it->second;
  std::size_t start = 0;
  for (auto end = text.find("\r\n"); end != std::string::npos; end = text.find("\r\n", start)) {
    lines.push_back(text.substr(start, end - start));
    start = end + 2;
  }
  if (start < text.size()) lines.push_back(text.substr(start));
  return lines;
}

}  // namespace velmora
