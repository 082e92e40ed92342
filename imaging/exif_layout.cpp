// The structure, all offsets from its start:
//
//   "II" 42 or "MM" 42 (byte order), offset of the first directory
//   directory: number of entries (2 bytes), 12 bytes an entry, offset of the next directory or 0
//   entry: tag (2), type (2), count (4), value (4), or the offset of the value when it is longer
//
// The first directory links to those about the camera and the place by entries, and to that of the
// thumbnail as the next one.

#include "imaging/exif_layout.h"

#include <algorithm>

namespace tarnwell {
namespace {

constexpr std::size_t kHeader = 8;
constexpr std::size_t kEntry = 12;
constexpr std::size_t kInside = 4;

enum Tag : std::uint16_t { kCameraLink = 0x8769, kPlaceLink = 0x8825, kRelatedLink = 0xA005 };

// Bytes of one item, by type; 0 for types that nobody defined, whose values are left alone.
std::size_t ItemBytes(std::uint16_t type) {
  constexpr std::uint8_t kBytes[] = {0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4};
  return type < std::size(kBytes) ? kBytes[type] : 0;
}

class Reader {
 public:
  explicit Reader(std::string_view block) : block_(block) {}

  std::optional<ExifLayout> Read();

 private:
  std::size_t Offset(std::size_t at) const { return layout_.numbers.Read(block_, at, 4); }
  bool ReadHeader();
  std::optional<ExifDirectory> ReadDirectory(std::size_t at);
  bool ReadEntry(std::size_t at, ExifEntry& entry) const;
  bool Follow(const ExifDirectory& from, Tag link, std::optional<ExifDirectory>& to);
  void ReadThumbnail();

  std::string_view block_;
  ExifLayout layout_;
  std::vector<ByteRange> tables_;  // of the directories read so far
};

bool Reader::ReadHeader() {
  if (block_.size() < kHeader) return false;
  layout_.numbers.big_endian = block_.starts_with("MM");
  if (!layout_.numbers.big_endian && !block_.starts_with("II")) return false;
  return layout_.numbers.Read(block_, 2, 2) == 42;
}

bool Reader::ReadEntry(std::size_t at, ExifEntry& entry) const {
  const ExifNumbers& numbers = layout_.numbers;
  entry.tag = static_cast<std::uint16_t>(numbers.Read(block_, at, 2));
  entry.type = static_cast<std::uint16_t>(numbers.Read(block_, at + 2, 2));
  entry.count = numbers.Read(block_, at + 4, 4);
  entry.at = at;
  const std::uint64_t bytes = std::uint64_t{entry.count} * ItemBytes(entry.type);
  const std::size_t begin = bytes <= kInside ? at + 8 : Offset(at + 8);
  if (bytes > kInside && (begin > block_.size() || bytes > block_.size() - begin)) return false;
  entry.value = {begin, begin + static_cast<std::size_t>(bytes)};
  return true;
}

std::optional<ExifDirectory> Reader::ReadDirectory(std::size_t at) {
  if (at < kHeader || at > block_.size() || block_.size() - at < 2) return std::nullopt;
  const std::size_t count = layout_.numbers.Read(block_, at, 2);
  const std::size_t entries_at = at + 2;
  if (count * kEntry > block_.size() - entries_at) return std::nullopt;
  ExifDirectory directory;
  directory.table = {at, entries_at + count * kEntry};
  // Some programs leave the last directory without a link.
  if (block_.size() - directory.table.end >= 4) {
    directory.link_at = directory.table.end;
    directory.table.end += 4;
  }
  for (const ByteRange& other : tables_) {
    if (directory.table.Overlaps(other)) return std::nullopt;
  }
  directory.entries.resize(count);
  for (std::size_t i = 0; i < count; ++i) {
    if (!ReadEntry(entries_at + i * kEntry, directory.entries[i])) return std::nullopt;
  }
  tables_.push_back(directory.table);
  return directory;
}

// False when the link leads to a damaged directory; without a link there is nothing to follow.
bool Reader::Follow(const ExifDirectory& from, Tag link, std::optional<ExifDirectory>& to) {
  const ExifEntry* entry = from.Find(link);
  if (!entry) return true;
  to = ReadDirectory(Offset(entry->at + 8));
  return to.has_value();
}

void Reader::ReadThumbnail() {
  if (layout_.main.link_at == 0) return;
  const std::size_t at = Offset(layout_.main.link_at);
  if (at == 0) return;
  layout_.thumbnail = ReadDirectory(at);
  layout_.thumbnail_damaged = !layout_.thumbnail;
}

std::optional<ExifLayout> Reader::Read() {
  if (!ReadHeader()) return std::nullopt;
  auto main = ReadDirectory(Offset(4));
  if (!main) return std::nullopt;
  layout_.main = std::move(*main);
  if (!Follow(layout_.main, kCameraLink, layout_.camera)) return std::nullopt;
  if (!Follow(layout_.main, kPlaceLink, layout_.place)) return std::nullopt;
  if (layout_.camera && !Follow(*layout_.camera, kRelatedLink, layout_.related)) {
    return std::nullopt;
  }
  ReadThumbnail();
  return std::move(layout_);
}

}  // namespace

const ExifEntry* ExifDirectory::Find(std::uint16_t tag) const {
  const auto found = std::find_if(entries.begin(), entries.end(),
                                  [tag](const ExifEntry& entry) { return entry.tag == tag; });
  return found == entries.end() ? nullptr : &*found;
}

std::uint32_t ExifNumbers::Read(std::string_view block, std::size_t at, int bytes) const {
  std::uint32_t number = 0;
  for (int i = 0; i < bytes; ++i) {
    const std::size_t from = at + static_cast<std::size_t>(big_endian ? i : bytes - 1 - i);
    number = number << 8 | static_cast<std::uint8_t>(block[from]);
  }
  return number;
}

void ExifNumbers::Write(char* at, int bytes, std::uint32_t number) const {
  for (int i = 0; i < bytes; ++i, number >>= 8) {
    at[big_endian ? bytes - 1 - i : i] = static_cast<char>(number & 0xFF);
  }
}

std::optional<ExifLayout> ReadExifLayout(std::string_view block) { return Reader(block).Read(); }

}  // namespace tarnwell
