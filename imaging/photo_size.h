#pragma once

#include <cstdint>
#include <string_view>

#include "imaging/picture_size.h"

namespace tarnwell {

struct frmModules;

// The size of the photo in this file by its headers, without decoding it; 0 x 0 when no codec would
// read the file. A GIF's size is that of its screen.
PictureSize PhotoSizeOf(std::string_view file_bytes);

// How many bytes of memory correcting the photo in this file with these settings takes at most, by
// its size in the file's headers; only the file's own length for what is no photo, because that
// fails early.
std::uint64_t MemoryToCorrect(std::string_view file_bytes, const frmModules& panel);

}  // namespace tarnwell
