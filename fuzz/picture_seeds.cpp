#include <gif_lib.h>

#include "fuzz/seeds.h"
#include "tests/platform/posix/make_jpeg.h"
#include "tests/support/bmp_builder.h"
#include "tests/support/gif_builder.h"
#include "tests/support/tiny_pictures.h"

namespace tarnwell {
namespace {

constexpr int kSide = 24;

std::vector<std::string> Jpegs() {
  std::vector<std::string> files = {kBaselineJpeg, kProgressiveJpeg, kGreyJpeg};
  for (JpegRecipe recipe : {JpegRecipe{.chrominance = 2},
                            {.restart_interval = 2},
                            {.progressive = true, .chrominance = 2},
                            {.arithmetic = true},
                            {.stored = JCS_RGB},
                            {.input = JCS_CMYK, .stored = JCS_CMYK},
                            {.input = JCS_CMYK, .stored = JCS_YCCK, .adobe_marker = false},
                            {.input = JCS_GRAYSCALE, .stored = JCS_GRAYSCALE}}) {
    recipe.width = recipe.height = kSide;
    for (int i = 0; i < kSide * kSide * 4; ++i) {
      recipe.samples.push_back(static_cast<unsigned char>(i * 7 ^ i / kSide * 11));
    }
    files.push_back(MakeJpeg(recipe));
  }
  return files;
}

int AppendBytes(GifFileType* gif, const GifByteType* bytes, int count) {
  static_cast<std::string*>(gif->UserData)->append(reinterpret_cast<const char*>(bytes), count);
  return count;
}

// With codes of changing length, and colours of the frame's own.
std::string CompressedGif(int colours) {
  std::string file;
  int error = 0;
  GifFileType* gif = EGifOpen(&file, AppendBytes, &error);
  ColorMapObject* map = GifMakeMapObject(colours, nullptr);
  EGifPutScreenDesc(gif, kSide, kSide, 8, 0, nullptr);
  EGifPutImageDesc(gif, 0, 0, kSide, kSide, colours == 16, map);
  for (int y = 0; y < kSide; ++y) {
    GifPixelType row[kSide];
    for (int x = 0; x < kSide; ++x) row[x] = static_cast<GifPixelType>((x * y / 5 + y) % colours);
    EGifPutLine(gif, row, kSide);
  }
  GifFreeMapObject(map);
  EGifCloseFile(gif, &error);
  return file;
}

std::vector<std::string> Gifs() {
  const std::vector<GifColour> colours = {{10, 20, 30}, {200, 0, 0}, {0, 200, 0}, {0, 0, 200}};
  const GifFrame frame{.left = 1, .top = 1, .width = 2, .height = 3, .indices = {1, 2, 0, 3, 1, 2}};
  GifFrame other = frame;
  other.transparent = 2;
  other.interlaced = true;
  return {GifBuilder(4, 4, colours).Add(frame).Bytes(),
          GifBuilder(4, 4, colours).Add(other).Add(frame).Bytes(),
          GifBuilder(0, 0, colours).Add(frame).Bytes(), CompressedGif(16), CompressedGif(256)};
}

std::vector<std::string> Bitmaps() {
  std::vector<std::string> files;
  for (const std::uint32_t header_size : {12u, 16u, 40u, 52u, 56u, 64u, 108u, 124u}) {
    for (const int bits : {1, 4, 8, 16, 24, 32}) {
      const bool top_down = header_size == 40 && bits == 24;
      BmpLayout layout{.header_size = header_size, .width = 5, .height = top_down ? -3 : 3};
      layout.bits = static_cast<std::uint16_t>(bits);
      if (bits <= 8) layout.palette.assign(std::size_t{1} << bits, {1, 2, 3});
      const bool masks =
          bits >= 16 && bits != 24 && header_size != 16 && header_size != 12 && header_size != 64;
      layout.compression = masks ? 3 : 0;
      layout.masks = {0xF800, 0x07E0, 0x001F, 0};
      layout.data = StoredRows(5, 3, bits, top_down, [](int x, int y) { return x * 37u + y; });
      files.push_back(BuildBmp(layout));
    }
  }
  using std::string_literals::operator""s;
  BmpLayout runs{.width = 4, .height = 2, .bits = 8, .compression = 1};
  runs.palette.assign(16, {9, 8, 7});
  runs.data = "\0\3\1\2\3\x63\1\4\0\0\0\2\1\0\2\5\0\1"s;
  files.push_back(BuildBmp(runs));
  runs.bits = 4;
  runs.compression = 2;
  runs.data = "\0\5\x12\x34\x5f\x63\1\x60\0\0\3\x34\0\1"s;
  files.push_back(BuildBmp(runs));
  return files;
}

}  // namespace

void AddPictureSeeds(Seeds& seeds) {
  seeds["jpeg_reader_fuzz"] = Jpegs();
  seeds["gif_reader_fuzz"] = Gifs();
  seeds["bmp_reader_fuzz"] = Bitmaps();
  seeds["dead_pixel_map_fuzz"] = Bitmaps();
}

}  // namespace tarnwell
