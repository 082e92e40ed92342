#include "imaging/bmp_header.h"

#include <algorithm>
#include <bit>
#include <string>

#include "imaging/byte_reader.h"
#include "imaging/pixel_array.h"

namespace tarnwell {
namespace {

// The values of the compression field.
constexpr std::uint32_t kPlain = 0;
constexpr std::uint32_t kRunLength8 = 1;
constexpr std::uint32_t kRunLength4 = 2;
constexpr std::uint32_t kBitFields = 3;
constexpr std::uint32_t kAlphaBitFields = 6;

constexpr std::uint32_t kFileHeaderBytes = 14;
constexpr std::uint32_t kCoreHeaderBytes = 12;
constexpr std::uint32_t kShortOs2HeaderBytes = 16;
constexpr std::uint32_t kInfoHeaderBytes = 40;
constexpr std::uint32_t kHeaderWithMasksBytes = 52;
constexpr std::uint32_t kOs2HeaderBytes = 64;

// The fields as they stand in the file, in the order of the file:
//
//   0   "BM", file size, reserved, pixel_offset     14 bytes
//   14  header_size and the fields up to its size; the masks are its last ones from 52 bytes on
//   ..  the masks, when the header has 40 bytes and the compression asks for masks
//   ..  the palette
struct RawHeader {
  std::uint32_t pixel_offset = 0;
  std::uint32_t header_size = 0;
  std::int64_t width = 0;
  std::int64_t height = 0;
  std::uint16_t planes = 0;
  std::uint16_t bits_per_pixel = 0;
  std::uint32_t compression = kPlain;
  std::uint32_t colours_used = 0;
  std::uint32_t red_mask = 0;
  std::uint32_t green_mask = 0;
  std::uint32_t blue_mask = 0;
  std::uint64_t palette_offset = 0;

  bool is_os2() const {
    return header_size == kShortOs2HeaderBytes || header_size == kOs2HeaderBytes;
  }
  bool has_masks() const { return compression == kBitFields || compression == kAlphaBitFields; }
};

Status Damaged(std::string reason) { return Status::Error(Failure::kDamaged, std::move(reason)); }

Status Unsupported(std::string reason) {
  return Status::Error(Failure::kUnsupported, std::move(reason));
}

bool IsKnownHeaderSize(std::uint32_t size) {
  constexpr std::uint32_t kKnown[] = {12, 16, 40, 52, 56, 64, 108, 124};
  return std::find(std::begin(kKnown), std::end(kKnown), size) != std::end(kKnown);
}

void ReadFields(ByteReader& in, RawHeader& raw) {
  if (raw.header_size == kCoreHeaderBytes) {
    raw.width = in.U16();
    raw.height = in.U16();
  } else {
    raw.width = in.I32();
    raw.height = in.I32();
  }
  raw.planes = in.U16();
  raw.bits_per_pixel = in.U16();
  if (raw.header_size < kInfoHeaderBytes) return;
  raw.compression = in.U32();
  in.Skip(12);  // bytes of the pixel data (often 0 or wrong), resolution
  raw.colours_used = in.U32();
  in.Skip(4);  // important colours
}

void ReadMasks(ByteReader& in, RawHeader& raw) {
  raw.red_mask = in.U32();
  raw.green_mask = in.U32();
  raw.blue_mask = in.U32();
  if (raw.header_size == kInfoHeaderBytes && raw.compression == kAlphaBitFields) in.Skip(4);
}

Result<RawHeader> ReadRawHeader(std::string_view bytes) {
  const Status breaks_off = Damaged("the file breaks off in its header");
  RawHeader raw;
  ByteReader in(bytes);
  in.Skip(10);
  raw.pixel_offset = in.U32();
  raw.header_size = in.U32();
  if (!in.ok()) return breaks_off;
  if (!IsKnownHeaderSize(raw.header_size)) {
    return Unsupported("this kind of bitmap header is not supported");
  }
  ReadFields(in, raw);
  const std::uint64_t header_end = std::uint64_t{kFileHeaderBytes} + raw.header_size;
  const bool masks_follow = raw.has_masks() && raw.header_size == kInfoHeaderBytes;
  if (masks_follow || (raw.header_size >= kHeaderWithMasksBytes && !raw.is_os2())) {
    ReadMasks(in, raw);
  }
  raw.palette_offset = masks_follow ? in.position() : header_end;
  if (!in.ok() || raw.palette_offset > bytes.size()) return breaks_off;
  return raw;
}

Status CheckSize(const RawHeader& raw) {
  const std::int64_t rows = raw.height < 0 ? -raw.height : raw.height;
  if (raw.width <= 0 || rows == 0) return Damaged("the header gives the picture no size");
  if (raw.width > kMaxSide || rows > kMaxSide) {
    return Status::Error(Failure::kTooLarge, "the picture is wider or taller than " +
                                                 std::to_string(kMaxSide) + " pixels");
  }
  if (raw.planes != 1) return Damaged("the header gives a wrong number of colour planes");
  return Status::Ok();
}

// The compression is looked at before the depth: a JPEG or PNG picture inside has a depth of 0.
Status CheckFormat(const RawHeader& raw) {
  const int bits = raw.bits_per_pixel;
  const bool known = raw.compression <= kBitFields || raw.compression == kAlphaBitFields;
  // In an OS/2 header the numbers of the masks mean other compressions.
  if (!known || (raw.is_os2() && raw.has_masks())) {
    return Unsupported("this kind of bitmap compression is not supported");
  }
  constexpr int kDepths[] = {1, 4, 8, 16, 24, 32};
  if (std::find(std::begin(kDepths), std::end(kDepths), bits) == std::end(kDepths)) {
    return Unsupported("a bitmap of " + std::to_string(bits) + " bits per pixel is not supported");
  }
  if ((raw.compression == kRunLength8 && bits != 8) ||
      (raw.compression == kRunLength4 && bits != 4) ||
      (raw.has_masks() && bits != 16 && bits != 32)) {
    return Damaged("the header's compression does not fit its bits per pixel");
  }
  return Status::Ok();
}

BmpCompression CompressionOf(const RawHeader& raw) {
  if (raw.compression == kRunLength8) return BmpCompression::kRle8;
  if (raw.compression == kRunLength4) return BmpCompression::kRle4;
  return BmpCompression::kNone;
}

// False when the mask has gaps or reaches above the pixel.
bool ChannelFromMask(std::uint32_t mask, int bits_per_pixel, BmpChannel& channel) {
  if (mask == 0) return true;
  channel.shift = std::countr_zero(mask);
  channel.bits = std::popcount(mask);
  return channel.bits == std::countr_one(mask >> channel.shift) &&
         channel.shift + channel.bits <= bits_per_pixel;
}

Status SetChannels(const RawHeader& raw, BmpHeader& header) {
  if (!raw.has_masks()) {
    const int bits = header.bits_per_pixel == 16 ? 5 : 8;
    header.blue = {0, bits};
    header.green = {bits, bits};
    header.red = {2 * bits, bits};
    return Status::Ok();
  }
  const int bits = header.bits_per_pixel;
  if ((raw.red_mask | raw.green_mask | raw.blue_mask) == 0 ||
      !ChannelFromMask(raw.red_mask, bits, header.red) ||
      !ChannelFromMask(raw.green_mask, bits, header.green) ||
      !ChannelFromMask(raw.blue_mask, bits, header.blue)) {
    return Damaged("the header's colour masks are wrong");
  }
  return Status::Ok();
}

// The palette ends where the pixel data begins, even when it should be longer. Some writers leave
// the offset 0 or count wrongly; an offset into the header then means: right after the palette.
Status ReadPalette(std::string_view bytes, const RawHeader& raw, BmpHeader& header) {
  const bool core = raw.header_size == kCoreHeaderBytes;
  const std::uint64_t entry_bytes = core ? 3 : 4;
  const bool indexed = header.bits_per_pixel <= 8;
  std::uint64_t colours = raw.colours_used;
  if (indexed) {
    const std::uint64_t most = std::uint64_t{1} << header.bits_per_pixel;
    if (colours == 0 || colours > most) colours = most;
  }
  if (raw.pixel_offset < raw.palette_offset) {
    header.pixel_offset = raw.palette_offset + colours * entry_bytes;
  } else {
    header.pixel_offset = raw.pixel_offset;
    colours = std::min(colours, (raw.pixel_offset - raw.palette_offset) / entry_bytes);
  }
  if (!indexed) return Status::Ok();

  ByteReader in(bytes, raw.palette_offset);
  for (std::uint64_t i = 0; i < colours; ++i) {
    BmpColour& colour = header.palette[static_cast<std::size_t>(i)];
    colour = {in.U8(), in.U8(), in.U8(), 0};
    if (!core) in.Skip(1);
  }
  return in.ok() ? Status::Ok() : Damaged("the file breaks off in its palette");
}

}  // namespace

Result<BmpHeader> ParseBmpHeader(std::string_view bytes) {
  Result<RawHeader> read = ReadRawHeader(bytes);
  if (!read.ok()) return read.status;
  const RawHeader& raw = *read;
  if (Status checked = CheckSize(raw); !checked.ok()) return checked;
  if (Status checked = CheckFormat(raw); !checked.ok()) return checked;

  BmpHeader header;
  header.width = static_cast<int>(raw.width);
  header.height = static_cast<int>(raw.height < 0 ? -raw.height : raw.height);
  header.top_down = raw.height < 0;
  header.bits_per_pixel = raw.bits_per_pixel;
  header.compression = CompressionOf(raw);
  if (Status set = SetChannels(raw, header); !set.ok()) return set;
  if (Status palette = ReadPalette(bytes, raw, header); !palette.ok()) return palette;
  return header;
}

}  // namespace tarnwell
