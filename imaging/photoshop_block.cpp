// A resource: signature (4 bytes), number (2), name (its length, then as many bytes; a zero more if
// that makes the whole even), length (4), content, and again a zero if the length is odd. Numbers
// are big-endian.
//
// IPTC data: fields of 0x1C, record, field, length (2), value. A length with the highest bit set
// tells of how many bytes the real one behind it is.

#include "imaging/photoshop_block.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "imaging/big_endian.h"

namespace tarnwell {
namespace {

enum Resource : std::uint32_t {
  kIptc = 0x0404,
  kOldThumbnail = 0x0409,
  kThumbnail = 0x040C,
  kExif1 = 0x0422,
  kExif3 = 0x0423,
  kXmp = 0x0424,
  kIptcChecksum = 0x0425,
};

bool IsSignature(std::string_view four) {
  constexpr std::array<std::string_view, 5> kSignatures = {"8BIM", "MeSa", "AgHg", "PHUT", "DCSR"};
  return std::find(kSignatures.begin(), kSignatures.end(), four) != kSignatures.end();
}

struct ResourceParts {
  std::uint32_t number = 0;
  std::string_view head;  // up to the length
  std::string_view content;
  std::string_view whole;
};

// Takes the first resource from `rest`; false when it breaks off.
bool TakeResource(std::string_view& rest, ResourceParts& parts) {
  if (rest.size() < 8 || !IsSignature(rest.substr(0, 4))) return false;
  parts.number = NumberAt(rest, 4, 2);
  const std::size_t name =
      (1 + static_cast<std::uint8_t>(rest[6]) + std::size_t{1}) & ~std::size_t{1};
  const std::size_t head = 6 + name;
  if (rest.size() < head + 4) return false;
  const std::size_t length = NumberAt(rest, head, 4);
  const std::size_t left = rest.size() - head - 4;
  if (length > left) return false;
  parts.head = rest.substr(0, head);
  parts.content = rest.substr(head + 4, length);
  // The last one may lack its zero.
  parts.whole = rest.substr(0, head + 4 + std::min(left, length + length % 2));
  rest.remove_prefix(parts.whole.size());
  return true;
}

// Zeros may follow the last resource. A resource starts with a letter, so this is found at once.
bool IsPadding(std::string_view rest) {
  return rest.empty() || (rest[0] == '\0' && rest.find_first_not_of('\0') == rest.npos);
}

bool IsPlaceField(int record, int field) {
  constexpr std::array<int, 7> kFields = {26, 27, 90, 92, 95, 100, 101};
  return record == 2 && std::find(kFields.begin(), kFields.end(), field) != kFields.end();
}

// The bytes of the first field of `rest`; 0 when it breaks off.
std::size_t FieldBytes(std::string_view rest) {
  constexpr std::size_t kHead = 5;
  if (rest.size() < kHead || rest[0] != '\x1C') return 0;
  std::size_t head = kHead;
  std::size_t length = NumberAt(rest, 3, 2);
  if (length & 0x8000) {
    const std::size_t more = length & 0x7FFF;
    if (more > 4 || rest.size() < kHead + more) return 0;
    length = NumberAt(rest, kHead, static_cast<int>(more));
    head += more;
  }
  return length <= rest.size() - head ? head + length : 0;
}

// What cannot be read as fields is left out from there on: nobody knows what it tells.
std::string IptcWithoutPlace(std::string_view fields) {
  std::string kept;
  while (const std::size_t bytes = FieldBytes(fields)) {
    const int record = static_cast<std::uint8_t>(fields[1]);
    const int field = static_cast<std::uint8_t>(fields[2]);
    if (!IsPlaceField(record, field)) kept += fields.substr(0, bytes);
    fields.remove_prefix(bytes);
  }
  return kept;
}

void AddResource(std::string& out, std::string_view head, std::string_view content) {
  out += head;
  for (int shift = 24; shift >= 0; shift -= 8) out += static_cast<char>(content.size() >> shift);
  out += content;
  if (content.size() % 2 == 1) out += '\0';
}

}  // namespace

std::optional<std::string> ChangedPhotoshopBlock(std::string_view resources, bool leave_place_out) {
  std::string changed;
  ResourceParts parts;
  while (!IsPadding(resources)) {
    if (!TakeResource(resources, parts)) return std::nullopt;
    switch (parts.number) {
      case kThumbnail:
      case kOldThumbnail:
        continue;
      case kExif1:
      case kExif3:
      case kXmp:
      case kIptcChecksum:  // would no longer hold
        if (leave_place_out) continue;
        break;
      case kIptc:
        if (!leave_place_out) break;
        AddResource(changed, parts.head, IptcWithoutPlace(parts.content));
        continue;
      default:
        break;
    }
    changed += parts.whole;
  }
  changed += resources;
  return changed;
}

}  // namespace tarnwell
