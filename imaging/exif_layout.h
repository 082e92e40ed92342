#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tarnwell {

// A stretch of bytes, counted from the start of the block.
struct ByteRange {
  std::size_t begin = 0;
  std::size_t end = 0;

  std::size_t size() const { return end - begin; }
  bool Overlaps(const ByteRange& other) const {
    return begin < other.end && other.begin < end && size() > 0 && other.size() > 0;
  }
};

enum class ExifType : std::uint16_t { kByte = 1, kShort = 3, kLong = 4 };

// An entry of a directory: what it is about, and where its value lies, which is inside the entry
// itself when it fits into four bytes.
struct ExifEntry {
  std::uint16_t tag = 0;
  std::uint16_t type = 0;
  std::uint32_t count = 0;
  std::size_t at = 0;  // of the entry's 12 bytes
  ByteRange value;

  bool is_inside() const { return value.begin == at + 8; }
};

struct ExifDirectory {
  ByteRange table;  // the count, the entries and the link to the next directory
  std::vector<ExifEntry> entries;
  std::size_t link_at = 0;  // of the offset of the next directory; 0 when there is no room for it

  const ExifEntry* Find(std::uint16_t tag) const;
};

// Numbers in the byte order of the block. Callers stay inside the bytes.
struct ExifNumbers {
  bool big_endian = false;

  std::uint32_t Read(std::string_view block, std::size_t at, int bytes) const;
  void Write(char* at, int bytes, std::uint32_t number) const;
};

// Where the parts of an EXIF block (the TIFF structure behind "Exif", 0, 0) lie. Everything named
// here was checked: it lies inside the block, and no directory lies on another one.
struct ExifLayout {
  ExifNumbers numbers;
  ExifDirectory main;
  std::optional<ExifDirectory> camera;   // "Exif": how the photo was taken, with the maker's notes
  std::optional<ExifDirectory> place;    // "GPS"
  std::optional<ExifDirectory> related;  // "Interoperability"
  std::optional<ExifDirectory> thumbnail;  // of the embedded thumbnail
  bool thumbnail_damaged = false;          // a thumbnail is announced, but its directory is damaged
};

// Nothing when the block is damaged: no such structure, a directory or a value outside the block,
// directories that lead back to one another. What lies behind a damaged thumbnail's link does not
// count. Takes time in proportion to the length of the block.
std::optional<ExifLayout> ReadExifLayout(std::string_view block);

}  // namespace tarnwell
