// The arguments part of a full process command line, as a program sees it
// when the shell starts it: the program name (quoted or not) and the white
// space after it removed, the rest verbatim.
#pragma once

#include <string>

namespace velmora {

inline std::string Arguments_Of(const std::string& fullCommandLine) {
  const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
  std::size_t i = 0;
  while (i < fullCommandLine.size() && isBlank(fullCommandLine[i])) ++i;
  if (i < fullCommandLine.size() && fullCommandLine[i] == '"') {
    const auto end = fullCommandLine.find('"', i + 1);
    i = end == std::string::npos ? fullCommandLine.size() : end + 1;
  } else {
    while (i < fullCommandLine.size() && !isBlank(fullCommandLine[i])) ++i;
  }
  while (i < fullCommandLine.size() && isBlank(fullCommandLine[i])) ++i;
  return fullCommandLine.substr(i);
}

}  // namespace velmora
