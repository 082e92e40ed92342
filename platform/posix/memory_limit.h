#pragma once

#include <cstdint>

namespace tarnwell {

// Whether a picture of this size may be made: at most half of this machine's memory. Linux promises
// more than it has and ends programs that take it at its word.
bool MemoryHoldsPicture(std::int64_t width, std::int64_t height);

}  // namespace tarnwell
