#pragma once

namespace tarnwell {

// Whether a picture of this size may be made: at most half of this machine's memory. Windows lends
// more than it has, but a program that works in what is lent brings the whole machine to a halt.
bool MemoryHoldsPicture(int width, int height);

}  // namespace tarnwell
