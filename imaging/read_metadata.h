#pragma once

#include <string_view>

#include "imaging/photo_metadata.h"

namespace tarnwell {

// Reads the metadata of the JPEG file `jpeg`; null for any other file. What is damaged is left out,
// with a note. Takes time in proportion to the length of the file.
SharedMetadata ReadPhotoMetadata(std::string_view jpeg);

}  // namespace tarnwell
