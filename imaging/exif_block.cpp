#include "imaging/exif_block.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "imaging/jpeg_segments.h"

namespace tarnwell {
namespace {

constexpr std::string_view kName("Exif\0\0", 6);

enum Tag : std::uint16_t {
  kImageWidth = 0x0100,
  kImageHeight = 0x0101,
  kCompression = 0x0103,
  kOrientation = 0x0112,
  kThumbnailOffset = 0x0201,
  kThumbnailLength = 0x0202,
  kXmpCopy = 0x02BC,
  kIptcCopy = 0x83BB,
  kPhotoshopCopy = 0x8649,
  kPlaceLink = 0x8825,
  kMakerNote = 0x927C,
  kSubjectArea = 0x9214,
  kPixelWidth = 0xA002,
  kPixelHeight = 0xA003,
  kSubjectLocation = 0xA214,
  kRelatedWidth = 0x1001,
  kRelatedHeight = 0x1002,
};

constexpr std::uint32_t kJpegCompression = 6;
constexpr std::uint32_t kUpright = 1;
constexpr std::uint32_t kLastOrientation = 8;

constexpr int kUsualThumbnailSide = 160;
constexpr int kLeastThumbnailSide = 64;
constexpr int kMostThumbnailSide = 640;

int BytesOfNumber(const ExifEntry& entry) {
  if (entry.count != 1) return 0;
  switch (static_cast<ExifType>(entry.type)) {
    case ExifType::kByte:
      return 1;
    case ExifType::kShort:
      return 2;
    case ExifType::kLong:
      return 4;
  }
  return 0;
}

int OrientationOf(std::uint32_t number) {
  if (number < kUpright || number > kLastOrientation) return kUpright;
  return static_cast<int>(number);
}

void AddValues(const ExifDirectory& directory, const ExifEntry* left_out,
               std::vector<ByteRange>& ranges) {
  for (const ExifEntry& entry : directory.entries) {
    if (!entry.is_inside() && &entry != left_out) ranges.push_back(entry.value);
  }
}

// The same bytes as ranges in their order that do not touch.
std::vector<ByteRange> Merged(std::vector<ByteRange> ranges) {
  std::sort(ranges.begin(), ranges.end(),
            [](const ByteRange& a, const ByteRange& b) { return a.begin < b.begin; });
  std::vector<ByteRange> merged;
  for (const ByteRange& range : ranges) {
    if (!merged.empty() && range.begin <= merged.back().end) {
      merged.back().end = std::max(merged.back().end, range.end);
    } else {
      merged.push_back(range);
    }
  }
  return merged;
}

// Whether one of `ranges` lies on one of `others`; both are merged.
bool Collide(const std::vector<ByteRange>& ranges, const std::vector<ByteRange>& others) {
  auto other = others.begin();
  for (const ByteRange& range : ranges) {
    while (other != others.end() && other->end <= range.begin) ++other;
    if (other != others.end() && other->Overlaps(range)) return true;
  }
  return false;
}

}  // namespace

bool ExifBlock::IsExif(std::string_view content) { return content.starts_with(kName); }

std::optional<ExifBlock> ExifBlock::Parse(std::string_view content) {
  if (!IsExif(content)) return std::nullopt;
  auto layout = ReadExifLayout(content.substr(kName.size()));
  if (!layout) return std::nullopt;
  ExifBlock exif(content);
  exif.layout_ = std::move(*layout);
  return exif;
}

std::string_view ExifBlock::block() const {
  return std::string_view(content_).substr(kName.size());
}

char* ExifBlock::At(std::size_t at) { return content_.data() + kName.size() + at; }

std::uint32_t ExifBlock::Number(const ExifEntry& entry) const {
  const int bytes = BytesOfNumber(entry);
  return bytes == 0 ? 0 : layout_.numbers.Read(block(), entry.value.begin, bytes);
}

void ExifBlock::SetNumber(const std::optional<ExifDirectory>& directory, std::uint16_t tag,
                          std::uint32_t number) {
  const ExifEntry* entry = directory ? directory->Find(tag) : nullptr;
  if (!entry) return;
  layout_.numbers.Write(At(entry->value.begin), BytesOfNumber(*entry), number);
}

int ExifBlock::Orientation() const {
  const ExifEntry* entry = layout_.main.Find(kOrientation);
  return OrientationOf(entry ? Number(*entry) : kUpright);
}

int ExifBlock::OrientationOfDamaged(std::string_view content) {
  if (!IsExif(content)) return kUpright;
  const std::string_view block = content.substr(kName.size());
  const ExifNumbers numbers{block.starts_with("MM")};
  if (block.size() < 8 || numbers.Read(block, 2, 2) != 42) return kUpright;
  std::uint64_t at = numbers.Read(block, 4, 4);
  if (at + 2 > block.size()) return kUpright;
  int entries = static_cast<int>(numbers.Read(block, at, 2));
  for (at += 2; entries-- > 0 && at + 12 <= block.size(); at += 12) {
    if (numbers.Read(block, at, 2) != kOrientation) continue;
    const ExifEntry entry = {.type = static_cast<std::uint16_t>(numbers.Read(block, at + 2, 2)),
                             .count = numbers.Read(block, at + 4, 4),
                             .value = {}};
    const int bytes = BytesOfNumber(entry);
    return bytes == 0 ? kUpright : OrientationOf(numbers.Read(block, at + 8, bytes));
  }
  return kUpright;
}

bool ExifBlock::TellsOrientation() const { return layout_.main.Find(kOrientation) != nullptr; }

void ExifBlock::SetUpright() {
  SetNumber(layout_.main, kOrientation, kUpright);
  SetNumber(layout_.thumbnail, kOrientation, kUpright);
}

void ExifBlock::SetPixelSize(int width, int height) {
  const auto set = [&](const std::optional<ExifDirectory>& directory, Tag across, Tag down) {
    SetNumber(directory, across, static_cast<std::uint32_t>(width));
    SetNumber(directory, down, static_cast<std::uint32_t>(height));
  };
  set(layout_.main, kImageWidth, kImageHeight);
  set(layout_.camera, kPixelWidth, kPixelHeight);
  set(layout_.related, kRelatedWidth, kRelatedHeight);
}

void ExifBlock::Clear(const ByteRange& range) { std::memset(At(range.begin), 0, range.size()); }

// Whether nothing but the directory `its_own` or the entry `itself` uses these bytes.
bool ExifBlock::IsApart(const std::vector<ByteRange>& ranges, const ExifDirectory* its_own,
                        const ExifEntry* itself) const {
  constexpr ByteRange kHeader = {0, 8};
  std::vector<ByteRange> others = {kHeader};
  const auto add = [&](const ExifDirectory& directory) {
    if (&directory == its_own) return;
    others.push_back(directory.table);
    AddValues(directory, itself, others);
  };
  add(layout_.main);
  for (const auto* directory :
       {&layout_.camera, &layout_.place, &layout_.related, &layout_.thumbnail}) {
    if (*directory) add(**directory);
  }
  return !Collide(Merged(ranges), Merged(std::move(others)));
}

const ExifEntry* ExifBlock::Find(In in, std::uint16_t tag) const {
  if (in == In::kMain) return layout_.main.Find(tag);
  return layout_.camera ? layout_.camera->Find(tag) : nullptr;
}

// The entries behind it move up; what they point to stays where it is.
bool ExifBlock::RemoveEntry(In in, std::uint16_t tag) {
  constexpr std::size_t kEntry = 12;
  const ExifDirectory& directory = in == In::kMain ? layout_.main : *layout_.camera;
  const ByteRange table = directory.table;
  const std::size_t at = Find(in, tag)->at;
  const auto count = static_cast<std::uint32_t>(directory.entries.size() - 1);
  std::memmove(At(at), At(at + kEntry), table.end - at - kEntry);
  Clear({table.end - kEntry, table.end});
  layout_.numbers.Write(At(table.begin), 2, count);
  std::optional<ExifLayout> layout = ReadExifLayout(block());
  if (!layout) return false;
  layout_ = std::move(*layout);
  return Find(in, tag) == nullptr;
}

bool ExifBlock::RemoveValue(In in, std::uint16_t tag) {
  const ExifEntry* entry = Find(in, tag);
  if (!entry) return true;
  if (!entry->is_inside()) {
    if (!IsApart({entry->value}, nullptr, entry)) return false;
    Clear(entry->value);
  }
  return RemoveEntry(in, tag);
}

bool ExifBlock::LeavePlaceOut() {
  if (layout_.place) {
    std::vector<ByteRange> place = {layout_.place->table};
    AddValues(*layout_.place, nullptr, place);
    place = Merged(std::move(place));
    if (!IsApart(place, &*layout_.place, nullptr)) return false;
    for (const ByteRange& range : place) Clear(range);
    layout_.place.reset();
    if (!RemoveEntry(In::kMain, kPlaceLink)) return false;
  }
  return RemoveValue(In::kMain, kXmpCopy) && RemoveValue(In::kMain, kIptcCopy) &&
         RemoveValue(In::kMain, kPhotoshopCopy) && RemoveValue(In::kCamera, kMakerNote);
}

bool ExifBlock::LeaveSubjectOut() {
  return RemoveValue(In::kCamera, kSubjectArea) && RemoveValue(In::kCamera, kSubjectLocation);
}

std::optional<ByteRange> ExifBlock::ThumbnailBytes() const {
  if (!layout_.thumbnail) return std::nullopt;
  const ExifEntry* compression = layout_.thumbnail->Find(kCompression);
  const ExifEntry* offset = layout_.thumbnail->Find(kThumbnailOffset);
  const ExifEntry* length = layout_.thumbnail->Find(kThumbnailLength);
  if (!offset || !length || BytesOfNumber(*offset) != 4) return std::nullopt;
  // A new thumbnail can take more than the 255 bytes that a single byte tells.
  if (BytesOfNumber(*length) == 1) return std::nullopt;
  if (compression && Number(*compression) != kJpegCompression) return std::nullopt;
  const std::size_t begin = Number(*offset), size = Number(*length);
  if (size == 0 || begin > block().size() || size > block().size() - begin) return std::nullopt;
  const ByteRange range = {begin, begin + size};
  if (!IsApart({range}, nullptr, nullptr)) return std::nullopt;
  return range;
}

int ExifBlock::ThumbnailSide(const ByteRange& thumbnail) const {
  for (const JpegSegment& segment :
       SegmentsBeforeScan(block().substr(thumbnail.begin, thumbnail.size()))) {
    if (!IsFrameMarker(segment.marker) || segment.content.size() < 5) continue;
    const ExifNumbers numbers{.big_endian = true};
    const auto height = static_cast<int>(numbers.Read(segment.content, 1, 2));
    const auto width = static_cast<int>(numbers.Read(segment.content, 3, 2));
    return std::clamp(std::max(width, height), kLeastThumbnailSide, kMostThumbnailSide);
  }
  return kUsualThumbnailSide;
}

void ExifBlock::DescribeThumbnail(std::size_t at, const EmbeddedThumbnail& thumbnail) {
  SetNumber(layout_.thumbnail, kThumbnailOffset, static_cast<std::uint32_t>(at));
  SetNumber(layout_.thumbnail, kThumbnailLength, static_cast<std::uint32_t>(thumbnail.jpeg.size()));
  SetNumber(layout_.thumbnail, kImageWidth, static_cast<std::uint32_t>(thumbnail.width));
  SetNumber(layout_.thumbnail, kImageHeight, static_cast<std::uint32_t>(thumbnail.height));
}

bool ExifBlock::PutThumbnailInPlace(const ThumbnailMaker& make, const ByteRange& room, int side) {
  const EmbeddedThumbnail thumbnail = make(side, room.size());
  if (thumbnail.jpeg.empty()) return false;
  Clear(room);
  std::memcpy(At(room.begin), thumbnail.jpeg.data(), thumbnail.jpeg.size());
  DescribeThumbnail(room.begin, thumbnail);
  return true;
}

bool ExifBlock::PutThumbnailAtTheEnd(const ThumbnailMaker& make, const ByteRange& room, int side) {
  const std::size_t end = block().size();
  const std::size_t begin = room.end == end ? room.begin : end + end % 2;
  const std::size_t most = kMostSegmentContent - kName.size();
  if (begin >= most) return false;
  const EmbeddedThumbnail thumbnail = make(side, most - begin);
  if (thumbnail.jpeg.empty()) return false;
  Clear(room);
  content_.resize(kName.size() + begin, '\0');
  content_ += thumbnail.jpeg;
  DescribeThumbnail(begin, thumbnail);
  return true;
}

// The directory stays where it is, but nothing leads to it.
void ExifBlock::UnlinkThumbnail() {
  layout_.numbers.Write(At(layout_.main.link_at), 4, 0);
  layout_.thumbnail.reset();
}

void ExifBlock::ReplaceThumbnail(const ThumbnailMaker& make) {
  if (!layout_.thumbnail && !layout_.thumbnail_damaged) return;
  if (const std::optional<ByteRange> room = ThumbnailBytes()) {
    const int side = ThumbnailSide(*room);
    if (PutThumbnailInPlace(make, *room, side)) return;
    if (PutThumbnailAtTheEnd(make, *room, side)) return;
    Clear(*room);
  }
  UnlinkThumbnail();
}

}  // namespace tarnwell
