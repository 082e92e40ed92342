#include "imaging/metadata_to_save.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "imaging/embedded_thumbnail.h"
#include "imaging/exif_block.h"
#include "imaging/jpeg_segments.h"
#include "imaging/photo_xmp.h"
#include "imaging/photoshop_block.h"

namespace tarnwell {
namespace {

class MetadataWriter {
 public:
  MetadataWriter(const PhotoMetadata& metadata, const PixelView& picture, const SaveWishes& wishes)
      : metadata_(metadata),
        picture_(picture),
        leave_place_out_(wishes.leave_place_out),
        turned_(wishes.turned || metadata.orientation != 1) {}

  MetadataToSave Write();

 private:
  void Prepare();
  void WriteExif(const MetadataSegment& segment);
  void WriteXmp(const MetadataSegment& segment);
  void WriteChangedPhotoshop();
  void WriteOne(const MetadataSegment& segment);

  const PhotoMetadata& metadata_;
  const PixelView& picture_;
  const bool leave_place_out_;
  const bool turned_;  // against the picture in the photo's file
  bool extension_left_out_ = false;
  std::optional<std::string> photoshop_;  // while it is changed and still to be written
  bool photoshop_changed_ = false;
  MetadataToSave made_;
};

void MetadataWriter::Prepare() {
  const std::string extension = XmpExtensionOf(metadata_);
  extension_left_out_ = extension.empty() || (leave_place_out_ && ExtensionTellsPlace(extension)) ||
                        (turned_ && ExtensionTellsRegions(extension));
  const std::string resources = PhotoshopResourcesOf(metadata_);
  photoshop_ = ChangedPhotoshopBlock(resources, leave_place_out_);
  photoshop_changed_ = photoshop_ != resources;
}

void MetadataWriter::WriteExif(const MetadataSegment& segment) {
  auto exif = ExifBlock::Parse(segment.content);
  if (exif && leave_place_out_ && !exif->LeavePlaceOut()) exif.reset();
  if (exif && turned_ && !exif->LeaveSubjectOut()) exif.reset();
  if (!exif) {
    made_.notes.push_back(LeftOutNote("EXIF data tells the place in an odd way"));
    return;
  }
  exif->SetUpright();
  exif->SetPixelSize(picture_.width, picture_.height);
  exif->ReplaceThumbnail([this](int longest_side, std::size_t most_bytes) {
    return MakeEmbeddedThumbnail(picture_, longest_side, most_bytes);
  });
  AddSegment(made_.segments, segment.marker, exif->content());
}

void MetadataWriter::WriteXmp(const MetadataSegment& segment) {
  const XmpChanges changes = {.upright = metadata_.tells_orientation,
                              .width = picture_.width,
                              .height = picture_.height,
                              .extension_left_out = extension_left_out_,
                              .leave_place_out = leave_place_out_,
                              .turned = turned_};
  const auto packet =
      ChangedXmp(std::string_view(segment.content).substr(kXmpSegmentName.size()), changes);
  if (!packet || kXmpSegmentName.size() + packet->size() > kMostSegmentContent) {
    made_.notes.push_back(LeftOutNote("XMP data would become too long"));
    return;
  }
  AddSegment(made_.segments, segment.marker, std::string(kXmpSegmentName) + *packet);
}

// All of it at the place of its first segment: a resource may go on in the next one.
void MetadataWriter::WriteChangedPhotoshop() {
  if (!photoshop_) return;
  constexpr std::size_t kRoom = kMostSegmentContent - kPhotoshopName.size();
  for (std::string_view rest = *photoshop_; !rest.empty();
       rest.remove_prefix(std::min(rest.size(), kRoom))) {
    AddSegment(made_.segments, kFirstApp + 13,
               std::string(kPhotoshopName) + std::string(rest.substr(0, kRoom)));
  }
  photoshop_.reset();
}

void MetadataWriter::WriteOne(const MetadataSegment& segment) {
  switch (segment.kind) {
    case MetadataKind::kExif:
      return;  // comes first
    case MetadataKind::kXmp:
      return WriteXmp(segment);
    case MetadataKind::kPhotoshop:
      if (photoshop_changed_) return WriteChangedPhotoshop();
      break;
    case MetadataKind::kXmpExtension:
      if (extension_left_out_) return;
      break;
    case MetadataKind::kOther:
      // Some cameras keep where they were in segments of their own.
      if (leave_place_out_) return;
      break;
    case MetadataKind::kColourProfile:
    case MetadataKind::kComment:
      break;
  }
  AddSegment(made_.segments, segment.marker, segment.content);
}

MetadataToSave MetadataWriter::Write() {
  Prepare();
  if (!metadata_.density.empty()) {
    AddSegment(made_.segments, kFirstApp,
               std::string(kJfifSegmentName) + "\1\1" + metadata_.density + std::string(2, '\0'));
  }
  for (const MetadataSegment& segment : metadata_.segments) {
    if (segment.kind == MetadataKind::kExif) WriteExif(segment);
  }
  for (const MetadataSegment& segment : metadata_.segments) WriteOne(segment);
  return std::move(made_);
}

}  // namespace

MetadataToSave MetadataFor(const PhotoMetadata& metadata, const PixelView& picture,
                           const SaveWishes& wishes) {
  return MetadataWriter(metadata, picture, wishes).Write();
}

}  // namespace tarnwell
