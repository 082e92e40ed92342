#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwell {

enum class MetadataKind {
  kExif,
  kXmp,
  kXmpExtension,
  kPhotoshop,
  kColourProfile,
  kComment,
  kOther
};

// A segment as it stood in the photo's file.
struct MetadataSegment {
  MetadataKind kind = MetadataKind::kOther;
  std::uint8_t marker = 0;
  std::string content;
};

// What a photo's file says beside its pixels. It is read when the photo is opened
// (read_metadata.h), travels with the photo, and is the same for every file that is saved from it
// (metadata_to_save.h).
struct PhotoMetadata {
  int orientation = 1;  // how the file stores the picture, 1 to 8; 1 is upright
  bool tells_orientation = false;
  std::vector<MetadataSegment> segments;  // sound ones, in the order of the file
  std::string colour_profile;             // whole; empty for none
  std::string
      density;  // unit, across and down of the JFIF header, 5 bytes; empty when it says none
  std::optional<int> jpeg_quality;  // estimated, 1 to 100
  std::vector<std::string> notes;   // what is left out and why, a sentence each
};

// Null stands for a photo that says nothing: a bitmap, a GIF file, a pasted picture.
using SharedMetadata = std::shared_ptr<const PhotoMetadata>;

// What the segments of a kind begin with.
inline constexpr std::string_view kJfifSegmentName("JFIF\0", 5);
inline constexpr std::string_view kXmpSegmentName("http://ns.adobe.com/xap/1.0/\0", 29);
inline constexpr std::string_view kXmpExtensionSegmentName("http://ns.adobe.com/xmp/extension/\0",
                                                           35);

// What stands in pieces in the segments of a kind, joined in the order of the file, without the
// names that lead each piece.
std::string XmpExtensionOf(const PhotoMetadata& metadata);
std::string PhotoshopResourcesOf(const PhotoMetadata& metadata);

// The sentence for a note: "The WHAT and is left out."
std::string LeftOutNote(const char* what);

// What a file that holds nothing but pixels loses, in words as in "EXIF data and the colour
// profile"; empty when it loses nothing.
std::string WhatPixelsAloneLose(const PhotoMetadata& metadata);

}  // namespace tarnwell
