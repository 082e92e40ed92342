#include "imaging/read_metadata.h"

#include <algorithm>
#include <array>
#include <utility>

#include "imaging/exif_block.h"
#include "imaging/icc_profile.h"
#include "imaging/jpeg_quality.h"
#include "imaging/jpeg_segments.h"
#include "imaging/photo_xmp.h"
#include "imaging/photoshop_block.h"

namespace tarnwell {
namespace {

// Behind the name of the JFIF header come version, unit, density across and down, and the size of a
// thumbnail. The unit 0 is none, with a density of 1.
constexpr std::size_t kDensityAt = kJfifSegmentName.size() + 2;
constexpr std::string_view kNoDensity("\0\0\1\0\1", 5);

constexpr std::string_view kCompanionIndex("MPF\0", 4);
constexpr std::string_view kGainMap("urn:iso:std:iso:ts:21496:-1\0", 28);

constexpr char kCompanionNote[] =
    "Pictures behind the main one (for high dynamic range, depth or motion) are left out, because "
    "they belong to the photo as it was.";
constexpr char kCredentialsNote[] =
    "The content credentials are left out, because they vouch for the photo as it was.";

bool HoldsJpeg(std::string_view bytes) { return bytes.find("\xFF\xD8\xFF") != bytes.npos; }

// A film begins with a box of this kind, whose size (4 bytes) comes first and is small.
bool HoldsFilm(std::string_view bytes) {
  constexpr std::string_view kKind = "ftyp";
  for (std::size_t at = bytes.find(kKind); at != bytes.npos; at = bytes.find(kKind, at + 1)) {
    if (at >= 4 && bytes.substr(at - 4, 3) == std::string_view("\0\0\0", 3)) return true;
  }
  return false;
}

// Some phones list what they put behind the picture at the very end of the file. A list of times
// and the like is short.
bool EndsInLongList(std::string_view bytes) {
  constexpr std::size_t kShort = 1024;
  return bytes.ends_with("SEFT") && bytes.size() > kShort;
}

// What came behind the picture: another picture, a film, distances.
bool HoldsCompanion(std::string_view behind) {
  return HoldsJpeg(behind) || HoldsFilm(behind) || EndsInLongList(behind);
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
  if (segment.IsApp(0) && content.starts_with(kJfifSegmentName)) return TakeDensity(content);
  if (segment.IsApp(0) || segment.IsApp(14)) return;
  if (segment.IsApp(1) && ExifBlock::IsExif(content)) return Keep(MetadataKind::kExif, segment);
  if (segment.IsApp(1) && content.starts_with(kXmpSegmentName))
    return Keep(MetadataKind::kXmp, segment);
  if (segment.IsApp(1) && content.starts_with(kXmpExtensionSegmentName)) {
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

// Of several blocks the first sound one is kept.
void MetadataReader::CheckExif() {
  bool kept = false;
  bool damaged = false;  // in front of that
  bool second = false;
  std::erase_if(found_.segments, [&](const MetadataSegment& segment) {
    if (segment.kind != MetadataKind::kExif) return false;
    if (kept) return second = true;
    const auto exif = ExifBlock::Parse(segment.content);
    kept = exif.has_value();
    damaged = damaged || !kept;
    if (exif && exif->TellsOrientation()) {
      found_.orientation = exif->Orientation();
      found_.tells_orientation = true;
    } else if (!exif && !found_.tells_orientation) {
      // Better a photo without its data than one that lies on its side for good.
      found_.orientation = ExifBlock::OrientationOfDamaged(segment.content);
      found_.tells_orientation = found_.orientation != 1;
    }
    return !exif;
  });
  if (damaged) {
    found_.notes.push_back(LeftOutNote(kept ? "damaged part of the EXIF data cannot be kept"
                                            : "EXIF data is damaged"));
  }
  if (second) found_.notes.push_back(LeftOutNote("second block of EXIF data cannot be kept"));
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
  found_.notes.push_back(LeftOutNote(profile ? "colour profile is for grey pictures or for inks"
                                             : "colour profile is damaged or not complete"));
}

void MetadataReader::CheckXmp() {
  bool damaged = false;
  std::erase_if(found_.segments, [&](const MetadataSegment& segment) {
    if (segment.kind != MetadataKind::kXmp) return false;
    const auto companions =
        TellsOfCompanions(std::string_view(segment.content).substr(kXmpSegmentName.size()));
    damaged = damaged || !companions;
    companions_ = companions_ || companions.value_or(false);
    return !companions;
  });
  if (damaged) found_.notes.push_back(LeftOutNote("XMP data is damaged"));
  const bool in_extension = ExtensionTellsOfCompanions(XmpExtensionOf(found_));
  companions_ = companions_ || in_extension;
  if (damaged || in_extension) Drop(MetadataKind::kXmpExtension);
}

void MetadataReader::CheckPhotoshop() {
  if (ChangedPhotoshopBlock(PhotoshopResourcesOf(found_), false)) return;
  Drop(MetadataKind::kPhotoshop);
  found_.notes.push_back(LeftOutNote("IPTC data is damaged"));
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

}  // namespace

SharedMetadata ReadPhotoMetadata(std::string_view jpeg) { return MetadataReader(jpeg).Read(); }

}  // namespace tarnwell
