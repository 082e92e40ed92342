#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "imaging/photo_metadata.h"
#include "imaging/pixel_array.h"
#include "platform/status.h"

namespace tarnwell {

struct Form1;

struct LoadedPhoto {
  Picture picture;  // upright
  SharedMetadata metadata;
};

// Reads a BMP, GIF or JPEG photo with its metadata, and turns it upright as that says. Events run
// meanwhile; the form's data stays as it is. Fails like PictureCodec::Decode and Files::Read, with
// kCancelled, and with kTooLarge, before memory is taken for pixels, when the machine has not
// enough of it for correcting and saving a photo of that size with the settings of the panel.
Result<LoadedPhoto> LoadPhotoFile(Form1& form, const std::string& path);

// The longest file that is read as a photo on this machine: correcting a longer one takes more
// memory than there is, whatever kind it is.
std::uint64_t MostPhotoBytes();

// Whether `memory` bytes (0: unknown, then they do) hold `needed` bytes, with room for the rest of
// the system. `name` is the photo's in the message of the failure.
Status CheckMemory(std::uint64_t needed, std::uint64_t memory, const std::string& name);

}  // namespace tarnwell
