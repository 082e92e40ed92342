#pragma once

#include <string>
#include <string_view>

#include "imaging/pixel_array.h"
#include "platform/events.h"
#include "platform/status.h"

namespace tarnwell {

// Whether the file's content says that it is a bitmap. It may still be damaged or unsupported.
bool IsBmp(std::string_view bytes);

// Decodes the content of a bitmap file; `name` is the file's name for the message of a failure
// ("NAME: reason"). Every platform gives the same pixels. The unused channel of the result is 0:
// the file's alpha is ignored.
//
// Read are the headers of 12, 16, 40, 52, 56, 64, 108 and 124 bytes; 1, 4, 8, 16, 24 and 32 bits
// per pixel; rows stored in either order; RLE4 and RLE8; 16 and 32 bits with masks. An index
// outside the palette is black. Pixels that RLE data leaves out have colour 0 of the palette.
//
// Fails with kDamaged (the file breaks off before the last pixel, or contradicts itself),
// kUnsupported (another header, depth or compression) or kTooLarge (a side above kMaxSide, or more
// than memory holds). All of these are found before memory is taken for the pixels, except for RLE
// data that breaks off. Ends with kCancelled when `go_on` says so.
Result<Picture> DecodeBmp(std::string_view bytes, const std::string& name,
                          const GoOn& go_on = ToTheEnd);

// The content of a bitmap file of 24 bits per pixel with a header of 40 bytes, rows stored bottom
// to top and padded to 4 bytes. Empty when `picture` is empty, memory does not suffice or `go_on`
// says so.
std::string EncodeBmp24(const PixelView& picture, const GoOn& go_on = ToTheEnd);

}  // namespace tarnwell
