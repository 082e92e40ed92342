#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "imaging/exif_block.h"
#include "imaging/pixel_array.h"

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

// What a photo's file says beside its pixels. It is read when the photo is opened, travels with the
// photo, and is the same for every file that is saved from it.
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

// Reads the metadata of the JPEG file `jpeg`; null for any other file. What is damaged is left out,
// with a note. Takes time in proportion to the length of the file.
SharedMetadata ReadPhotoMetadata(std::string_view jpeg);

// The segments that a JPEG file with the pixels `picture`, made from the photo, gets.
struct MetadataToSave {
  std::string segments;            // one behind the other; empty for none
  std::vector<std::string> notes;  // what is left out on top of PhotoMetadata::notes
};
struct SaveWishes {
  bool leave_place_out = false;
  bool turned = false;  // the picture was turned or mirrored since the photo was opened
};
MetadataToSave MetadataFor(const PhotoMetadata& metadata, const PixelView& picture,
                           const SaveWishes& wishes);

// What a file that holds nothing but pixels loses, in words as in "EXIF data and the colour
// profile"; empty when it loses nothing.
std::string WhatPixelsAloneLose(const PhotoMetadata& metadata);

}  // namespace tarnwell
