#include "bench/jpeg_floor.h"

#include <algorithm>
#include <cstdio>  // libjpeg's header needs it before
#include <cstdlib>
#include <ctime>
#include <jpeglib.h>
#include <map>
#include <memory>

#include "bench/generated_picture.h"

namespace tarnwell {

DecodedPixels DecodedByLibjpeg(const std::string& file) {
  jpeg_decompress_struct info;
  jpeg_error_mgr errors;  // ends the program: the files are our own
  info.err = jpeg_std_error(&errors);
  jpeg_create_decompress(&info);
  jpeg_mem_src(&info, reinterpret_cast<const unsigned char*>(file.data()), file.size());
  jpeg_read_header(&info, TRUE);
  info.out_color_space = JCS_EXT_BGRX;
  jpeg_start_decompress(&info);
  const std::size_t row_bytes = std::size_t{info.output_width} * 4;
  DecodedPixels decoded = {
      static_cast<int>(info.output_width), static_cast<int>(info.output_height),
      std::make_unique_for_overwrite<std::uint8_t[]>(row_bytes * info.output_height)};
  while (info.output_scanline < info.output_height) {
    JSAMPROW row = decoded.bytes.get() + info.output_scanline * row_bytes;
    jpeg_read_scanlines(&info, &row, 1);
  }
  jpeg_finish_decompress(&info);
  jpeg_destroy_decompress(&info);
  return decoded;
}

std::string EncodedByLibjpeg(const PixelView& pixels, int quality) {
  jpeg_compress_struct info;
  jpeg_error_mgr errors;
  info.err = jpeg_std_error(&errors);
  jpeg_create_compress(&info);
  unsigned char* bytes = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&info, &bytes, &size);
  info.image_width = static_cast<JDIMENSION>(pixels.width);
  info.image_height = static_cast<JDIMENSION>(pixels.height);
  info.input_components = 4;
  info.in_color_space = JCS_EXT_BGRX;
  jpeg_set_defaults(&info);
  jpeg_set_quality(&info, quality, TRUE);
  jpeg_start_compress(&info, TRUE);
  while (info.next_scanline < info.image_height) {
    auto* row = const_cast<JSAMPROW>(pixels.at(0, static_cast<int>(info.next_scanline)));
    jpeg_write_scanlines(&info, &row, 1);
  }
  jpeg_finish_compress(&info);
  jpeg_destroy_compress(&info);
  const std::string file(reinterpret_cast<const char*>(bytes), size);
  std::free(bytes);
  return file;
}

std::string FloorOf(const std::string& file) {
  constexpr int kQuality = 80;  // the program's default
  return EncodedByLibjpeg(DecodedByLibjpeg(file).view(), kQuality);
}

const std::string& GeneratedPhoto(int megapixels) {
  constexpr int kQuality = 92;
  static std::map<int, std::string> files;
  std::string& file = files[megapixels];
  if (file.empty()) {
    file = EncodedByLibjpeg(GeneratedPicture::OfMegapixels(megapixels)->view(), kQuality);
  }
  return file;
}

double FloorSeconds(int megapixels) {
  constexpr int kRuns = 5;
  static std::map<int, double> measured;
  if (const auto found = measured.find(megapixels); found != measured.end()) return found->second;
  const std::string& jpeg = GeneratedPhoto(megapixels);
  double least = 1e9;
  for (int run = 0; run < kRuns; ++run) {
    const double before = ProcessorSeconds();
    FloorOf(jpeg);
    least = std::min(least, ProcessorSeconds() - before);
  }
  return measured[megapixels] = least;
}

double ProcessorSeconds() {
  timespec spent;
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &spent);
  return static_cast<double>(spent.tv_sec) + static_cast<double>(spent.tv_nsec) * 1e-9;
}

}  // namespace tarnwell
