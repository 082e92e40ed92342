#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarnwell {

// The block of resources in segments APP13, of which IPTC data is one. `resources` is the content
// of all such segments, one behind the other, each without its name.

// The start of the content of such a segment.
inline constexpr std::string_view kPhotoshopName("Photoshop 3.0\0", 14);

// The resources without thumbnails, and with `leave_place_out` without what tells the place: the
// place's fields of the IPTC data, and copies of EXIF and XMP data. The others stay as they are,
// byte for byte. Nothing when the block is damaged.
std::optional<std::string> ChangedPhotoshopBlock(std::string_view resources, bool leave_place_out);

}  // namespace tarnwell
