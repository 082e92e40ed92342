#pragma once

#include <string>
#include <string_view>

#include "imaging/picture_size.h"
#include "platform/status.h"

namespace tarnwell {

// Whether the file's content says that it is a JPEG file. It may still be damaged or unsupported.
bool IsJpeg(std::string_view bytes);

// Whether a decoder may be given this JPEG file: walks its segments without decoding and takes no
// memory. Decoders differ in what they let pass, some fill a file that breaks off with grey; this
// check makes them agree. Gives the picture's size. Bytes behind the end marker are harmless
// (phones append previews there).
//
// Fails, with a message about `name`, with kDamaged (no frame header, a side of 0, the end marker
// is missing, or fewer bytes than any picture of that size takes), kUnsupported (lossless,
// hierarchical or arithmetic coding, samples of other than 8 bits, other than 1, 3 or 4 components)
// or kTooLarge (a side above kMaxSide, or so many scans that decoding would take minutes: scans
// times pixels above kMostScannedPixels).
Result<PictureSize> CheckJpeg(std::string_view bytes, const std::string& name);

}  // namespace tarnwell
