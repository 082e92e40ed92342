#include "shell/photo_queue.h"

#include "shell/line_reader.h"

namespace tarnwell {

std::string QueueLine(const std::string& path) { return path + "\r\n"; }

std::string QueuedPath(std::string_view queue) {
  return std::string(LineReader(queue, "").Next().value_or(""));
}

}  // namespace tarnwell
