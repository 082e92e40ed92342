#include <cstdio>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "console/console_host.h"
#include "console/interrupt.h"
#include "console/program.h"
#include "platform/system.h"
#ifdef _WIN32
#include <fcntl.h>
#include <io.h>

#include "platform/win32/utf16.h"
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace tarnwell {
namespace {

int Run(const std::vector<std::string>& words, bool err_is_terminal) {
  ConsoleHost host{std::cout, std::cerr, err_is_terminal, WatchForInterrupt(),
                   SystemTerminalColumns};
  return RunProgram(words, host);
}

}  // namespace
}  // namespace tarnwell

#ifdef _WIN32
// The console of Windows hands wide words over.
int wmain(int argc, wchar_t** argv) {
  std::vector<std::string> words;
  for (int at = 1; at < argc; ++at) {
    const std::optional<std::string> word = tarnwell::WideToUtf8(argv[at]);
    if (!word) {
      std::cerr << "Word " << at << " is not well-formed Unicode." << std::endl;
      return tarnwell::kWrongUsage;
    }
    words.push_back(*word);
  }
  // Scripts get the same bytes on every system.
  _setmode(_fileno(stdout), _O_BINARY);
  return tarnwell::Run(words, _isatty(_fileno(stderr)) != 0);
}
#else
int main(int argc, char** argv) {
  // A stream that the caller closed must not come to stand for a photo that is opened later. It
  // stays one that nothing can be written to.
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
    if (fcntl(stream, F_GETFD) < 0) static_cast<void>(open("/dev/null", O_RDONLY));
  }
  return tarnwell::Run({argv + (argc > 0 ? 1 : 0), argv + argc}, isatty(STDERR_FILENO) != 0);
}
#endif
