#include "imaging/photo_metadata.h"

#include <algorithm>

#include "imaging/photoshop_block.h"

namespace tarnwell {
namespace {

// Behind its name an extension has a checksum, its whole length, and where this piece belongs.
constexpr std::size_t kExtensionHeader = kXmpExtensionSegmentName.size() + 32 + 4 + 4;

}  // namespace

std::string XmpExtensionOf(const PhotoMetadata& metadata) {
  std::string extension;
  for (const MetadataSegment& segment : metadata.segments) {
    if (segment.kind != MetadataKind::kXmpExtension) continue;
    const std::string_view content = segment.content;
    extension += content.substr(std::min(content.size(), kExtensionHeader));
  }
  return extension;
}

std::string PhotoshopResourcesOf(const PhotoMetadata& metadata) {
  std::string resources;
  for (const MetadataSegment& segment : metadata.segments) {
    if (segment.kind == MetadataKind::kPhotoshop) {
      resources += std::string_view(segment.content).substr(kPhotoshopName.size());
    }
  }
  return resources;
}

std::string LeftOutNote(const char* what) {
  return std::string("The ") + what + " and is left out.";
}

std::string WhatPixelsAloneLose(const PhotoMetadata& metadata) {
  struct Named {
    MetadataKind kind;
    const char* name;
  };
  constexpr Named kNames[] = {
      {MetadataKind::kExif, "EXIF data"},      {MetadataKind::kXmp, "XMP data"},
      {MetadataKind::kPhotoshop, "IPTC data"}, {MetadataKind::kColourProfile, "the colour profile"},
      {MetadataKind::kComment, "comments"},    {MetadataKind::kOther, "the camera's own data"}};
  std::vector<std::string> lost;
  for (const auto& [kind, name] : kNames) {
    if (std::any_of(metadata.segments.begin(), metadata.segments.end(),
                    [kind = kind](const auto& segment) { return segment.kind == kind; })) {
      lost.push_back(name);
    }
  }
  std::string words;
  for (std::size_t i = 0; i < lost.size(); ++i) {
    if (i > 0) words += i + 1 == lost.size() ? " and " : ", ";
    words += lost[i];
  }
  return words;
}

}  // namespace tarnwell
