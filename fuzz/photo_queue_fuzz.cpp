#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "shell/photo_queue.h"

// Any text gives one line at most, and a path that was queued comes out first, whatever follows it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarnwell;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const std::string path = QueuedPath(text);
  if (path.find('\n') != std::string::npos || !text.starts_with(path)) std::abort();
  if (QueuedPath(QueueLine(path) + std::string(text)) != path) std::abort();
  return 0;
}
