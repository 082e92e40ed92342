#pragma once

#include <cstddef>
#include <cstdint>

namespace tarnwell {

// Memory for the pixels of a picture, every byte 0, or null when there is not enough. Photos take
// tens of megabytes that are written once from end to end; the system is asked for them in its
// largest pages, since touching 4 KiB at a time for the first time costs a quarter of what decoding
// a photo does.
std::uint8_t* TakePixelMemory(std::size_t bytes);

// Gives it back; `bytes` as it was taken. Null is let pass.
void ReturnPixelMemory(std::uint8_t* memory, std::size_t bytes);

}  // namespace tarnwell
