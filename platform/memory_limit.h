#pragma once

#include <cstdint>

namespace tarnwell {

// Whether a picture of this size may be made: its sides at most kMaxSide, and no more than half of
// this machine's memory. Systems promise more than they have, and then end programs that take them
// at their word, or come to a halt.
bool MemoryHoldsPicture(std::int64_t width, std::int64_t height);

}  // namespace tarnwell
