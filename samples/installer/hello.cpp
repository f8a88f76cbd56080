// velmora-hello.exe: the small program that the sample installer installs.
// Run, it prints one line and ends with status 0, which shows that the
// installed copy is a working program.
#include <cstdio>

int main() {
  std::puts("Hello from the Velmora sample installation.");
  return 0;
}
