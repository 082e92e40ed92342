#include "imaging/photo_metadata.h"

#include <algorithm>
#include <array>

#include "imaging/embedded_thumbnail.h"
#include "imaging/icc_profile.h"
#include "imaging/jpeg_quality.h"
#include "imaging/jpeg_segments.h"
#include "imaging/photo_xmp.h"
#include "imaging/photoshop_block.h"

namespace tarnwell {
namespace {

constexpr std::string_view kXmpName("http://ns.adobe.com/xap/1.0/\0", 29);
constexpr std::string_view kExtensionName("http://ns.adobe.com/xmp/extension/\0", 35);
// Behind its name an extension has a checksum, its whole length, and where this piece belongs.
constexpr std::size_t kExtensionHeader = kExtensionName.size() + 32 + 4 + 4;

// The header of most files: behind its name come version, unit, density across and down, and the
// size of a thumbnail. The unit 0 is none, with a density of 1.
constexpr std::string_view kJfifName("JFIF\0", 5);
constexpr std::size_t kDensityAt = kJfifName.size() + 2;
constexpr std::string_view kNoDensity("\0\0\1\0\1", 5);

constexpr std::string_view kCompanionIndex("MPF\0", 4);
constexpr std::string_view kGainMap("urn:iso:std:iso:ts:21496:-1\0", 28);

constexpr char kCompanionNote[] =
    "Pictures behind the main one (for high dynamic range, depth or motion) are left out, because "
    "they belong to the photo as it was.";
constexpr char kCredentialsNote[] =
    "The content credentials are left out, because they vouch for the photo as it was.";

std::string LeftOut(const char* what) { return std::string("The ") + what + " and is left out."; }

bool HoldsJpeg(std::string_view bytes) { return bytes.find("\xFF\xD8\xFF") != bytes.npos; }

// What came behind the picture: another picture, or a film.
bool HoldsCompanion(std::string_view behind) {
  return HoldsJpeg(behind) || behind.substr(0, 64).find("ftyp") != behind.npos;
}

// The parts of an XMP extension in the order of the file.
std::string ExtensionOf(const PhotoMetadata& metadata) {
  std::string extension;
  for (const MetadataSegment& segment : metadata.segments) {
    if (segment.kind != MetadataKind::kXmpExtension) continue;
    const std::string_view content = segment.content;
    extension += content.substr(std::min(content.size(), kExtensionHeader));
  }
  return extension;
}

std::string PhotoshopResources(const PhotoMetadata& metadata) {
  std::string resources;
  for (const MetadataSegment& segment : metadata.segments) {
    if (segment.kind == MetadataKind::kPhotoshop) {
      resources += std::string_view(segment.content).substr(kPhotoshopName.size());
    }
  }
  return resources;
}

class MetadataReader {
 public:
  explicit MetadataReader(std::string_view jpeg)
      : jpeg_(jpeg), segments_(SegmentsBeforeScan(jpeg)) {}

  SharedMetadata Read();

 private:
  void Sort(const JpegSegment& segment);
  void SortApp(const JpegSegment& segment);
  void TakeDensity(std::string_view jfif);
  void Keep(MetadataKind kind, const JpegSegment& segment) {
    found_.segments.push_back({kind, segment.marker, std::string(segment.content)});
  }
  void Drop(MetadataKind kind);
  void CheckExif();
  void CheckColourProfile();
  void CheckXmp();
  void CheckPhotoshop();
  void CheckOthers();

  std::string_view jpeg_;
  std::vector<JpegSegment> segments_;
  PhotoMetadata found_;
  bool companions_ = false;
  bool credentials_ = false;
};

// Only square pixels: others would have to be turned with the picture.
void MetadataReader::TakeDensity(std::string_view jfif) {
  if (jfif.size() < kDensityAt + kNoDensity.size()) return;
  const std::string_view density = jfif.substr(kDensityAt, kNoDensity.size());
  const std::string_view across = density.substr(1, 2), down = density.substr(3, 2);
  const bool told = density[0] >= 0 && density[0] <= 2 && across != std::string_view("\0\0", 2);
  if (told && across == down && density != kNoDensity) found_.density = density;
}

// JFIF and Adobe segments describe the file's own coding; the encoder writes what is true of its.
void MetadataReader::SortApp(const JpegSegment& segment) {
  const std::string_view content = segment.content;
  if (segment.IsApp(0) && content.starts_with(kJfifName)) return TakeDensity(content);
  if (segment.IsApp(0) || segment.IsApp(14)) return;
  if (segment.IsApp(1) && ExifBlock::IsExif(content)) return Keep(MetadataKind::kExif, segment);
  if (segment.IsApp(1) && content.starts_with(kXmpName)) return Keep(MetadataKind::kXmp, segment);
  if (segment.IsApp(1) && content.starts_with(kExtensionName)) {
    return Keep(MetadataKind::kXmpExtension, segment);
  }
  if (segment.IsApp(2) && IsIccPiece(content)) return Keep(MetadataKind::kColourProfile, segment);
  if (segment.IsApp(2) && (content.starts_with(kCompanionIndex) || content.starts_with(kGainMap))) {
    companions_ = true;
    return;
  }
  if (segment.IsApp(11) && (content.starts_with("JP") || content.starts_with("HDR_RI"))) {
    (content.starts_with("JP") ? credentials_ : companions_) = true;
    return;
  }
  if (segment.IsApp(13) && content.starts_with(kPhotoshopName)) {
    return Keep(MetadataKind::kPhotoshop, segment);
  }
  Keep(MetadataKind::kOther, segment);
}

void MetadataReader::Sort(const JpegSegment& segment) {
  if (segment.marker == kCommentMarker) Keep(MetadataKind::kComment, segment);
  if (segment.marker >= kFirstApp && segment.marker <= kLastApp) SortApp(segment);
}

void MetadataReader::Drop(MetadataKind kind) {
  std::erase_if(found_.segments,
                [kind](const MetadataSegment& segment) { return segment.kind == kind; });
}

void MetadataReader::CheckExif() {
  bool seen = false;
  bool damaged = false;
  std::erase_if(found_.segments, [&](const MetadataSegment& segment) {
    if (segment.kind != MetadataKind::kExif) return false;
    const auto exif = seen ? std::nullopt : ExifBlock::Parse(segment.content);
    damaged = damaged || !exif;
    if (!exif) return true;
    seen = true;
    found_.orientation = exif->Orientation();
    found_.tells_orientation = exif->TellsOrientation();
    return false;
  });
  if (damaged) {
    found_.notes.push_back(
        LeftOut(seen ? "second block of EXIF data is damaged" : "EXIF data is damaged"));
  }
}

void MetadataReader::CheckColourProfile() {
  std::vector<std::string_view> pieces;
  for (const MetadataSegment& segment : found_.segments) {
    if (segment.kind == MetadataKind::kColourProfile) pieces.push_back(segment.content);
  }
  if (pieces.empty()) return;
  auto profile = JoinIccProfile(pieces);
  if (profile && IsRgbProfile(*profile)) {
    found_.colour_profile = std::move(*profile);
    return;
  }
  Drop(MetadataKind::kColourProfile);
  found_.notes.push_back(LeftOut(profile ? "colour profile is for grey pictures or for inks"
                                         : "colour profile is damaged or not complete"));
}

void MetadataReader::CheckXmp() {
  bool damaged = false;
  std::erase_if(found_.segments, [&](const MetadataSegment& segment) {
    if (segment.kind != MetadataKind::kXmp) return false;
    const auto companions =
        TellsOfCompanions(std::string_view(segment.content).substr(kXmpName.size()));
    damaged = damaged || !companions;
    companions_ = companions_ || companions.value_or(false);
    return !companions;
  });
  if (damaged) found_.notes.push_back(LeftOut("XMP data is damaged"));
  const bool in_extension = ExtensionTellsOfCompanions(ExtensionOf(found_));
  companions_ = companions_ || in_extension;
  if (damaged || in_extension) Drop(MetadataKind::kXmpExtension);
}

void MetadataReader::CheckPhotoshop() {
  if (ChangedPhotoshopBlock(PhotoshopResources(found_), false)) return;
  Drop(MetadataKind::kPhotoshop);
  found_.notes.push_back(LeftOut("IPTC data is damaged"));
}

// Segments that nobody here knows stay, except for those with pictures in them, which show the
// photo as it was, and their neighbours of the same number, which go on with them.
void MetadataReader::CheckOthers() {
  std::array<bool, 256> holds_picture = {};
  for (const MetadataSegment& segment : found_.segments) {
    if (segment.kind == MetadataKind::kOther && HoldsJpeg(segment.content)) {
      holds_picture[segment.marker] = true;
    }
  }
  std::erase_if(found_.segments, [&](const MetadataSegment& segment) {
    return segment.kind == MetadataKind::kOther && holds_picture[segment.marker];
  });
}

SharedMetadata MetadataReader::Read() {
  if (segments_.empty()) return nullptr;
  for (const JpegSegment& segment : segments_) Sort(segment);
  CheckExif();
  CheckColourProfile();
  CheckXmp();
  CheckPhotoshop();
  CheckOthers();
  if (companions_ || HoldsCompanion(BytesBehindPicture(jpeg_))) {
    found_.notes.push_back(kCompanionNote);
  }
  if (credentials_) found_.notes.push_back(kCredentialsNote);
  found_.jpeg_quality = EstimateJpegQuality(segments_);
  return std::make_shared<const PhotoMetadata>(std::move(found_));
}

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
  const std::string extension = ExtensionOf(metadata_);
  extension_left_out_ = extension.empty() || (leave_place_out_ && ExtensionTellsPlace(extension)) ||
                        (turned_ && ExtensionTellsRegions(extension));
  const std::string resources = PhotoshopResources(metadata_);
  photoshop_ = ChangedPhotoshopBlock(resources, leave_place_out_);
  photoshop_changed_ = photoshop_ != resources;
}

void MetadataWriter::WriteExif(const MetadataSegment& segment) {
  auto exif = ExifBlock::Parse(segment.content);
  if (exif && leave_place_out_ && !exif->LeavePlaceOut()) exif.reset();
  if (exif && turned_ && !exif->LeaveSubjectOut()) exif.reset();
  if (!exif) {
    made_.notes.push_back(LeftOut("EXIF data tells the place in an odd way"));
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
      ChangedXmp(std::string_view(segment.content).substr(kXmpName.size()), changes);
  if (!packet || kXmpName.size() + packet->size() > kMostSegmentContent) {
    made_.notes.push_back(LeftOut("XMP data would become too long"));
    return;
  }
  AddSegment(made_.segments, segment.marker, std::string(kXmpName) + *packet);
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
               std::string(kJfifName) + "\1\1" + metadata_.density + std::string(2, '\0'));
  }
  for (const MetadataSegment& segment : metadata_.segments) {
    if (segment.kind == MetadataKind::kExif) WriteExif(segment);
  }
  for (const MetadataSegment& segment : metadata_.segments) WriteOne(segment);
  return std::move(made_);
}

}  // namespace

SharedMetadata ReadPhotoMetadata(std::string_view jpeg) { return MetadataReader(jpeg).Read(); }

MetadataToSave MetadataFor(const PhotoMetadata& metadata, const PixelView& picture,
                           const SaveWishes& wishes) {
  return MetadataWriter(metadata, picture, wishes).Write();
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
