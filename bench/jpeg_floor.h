#pragma once

#include <benchmark/benchmark.h>
#include <cstdint>
#include <cstdio>  // libjpeg's header needs it before
#include <cstdlib>
#include <jpeglib.h>
#include <vector>

#include "bench/generated_picture.h"

namespace tarnwell {

// `pixels` as a JPEG file of quality 80.
inline std::vector<std::uint8_t> EncodedByLibjpeg(const PixelView& pixels) {
  jpeg_compress_struct info;
  jpeg_error_mgr errors;
  info.err = jpeg_std_error(&errors);
  jpeg_create_compress(&info);
  unsigned char* bytes = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&info, &bytes, &size);
  info.image_width = pixels.width;
  info.image_height = pixels.height;
  info.input_components = kBytesPerPixel;
  info.in_color_space = JCS_EXT_BGRX;
  jpeg_set_defaults(&info);
  jpeg_set_quality(&info, 80, TRUE);
  jpeg_start_compress(&info, TRUE);
  while (info.next_scanline < info.image_height) {
    auto* row = const_cast<JSAMPLE*>(pixels.at(0, static_cast<int>(info.next_scanline)));
    jpeg_write_scanlines(&info, &row, 1);
  }
  jpeg_finish_compress(&info);
  std::vector<std::uint8_t> file(bytes, bytes + size);
  jpeg_destroy_compress(&info);
  std::free(bytes);
  return file;
}

inline PixelArray DecodedByLibjpeg(const std::vector<std::uint8_t>& file) {
  jpeg_decompress_struct info;
  jpeg_error_mgr errors;
  info.err = jpeg_std_error(&errors);
  jpeg_create_decompress(&info);
  jpeg_mem_src(&info, file.data(), file.size());
  jpeg_read_header(&info, TRUE);
  info.out_color_space = JCS_EXT_BGRX;
  jpeg_start_decompress(&info);
  PixelArray pixels(static_cast<int>(info.output_width), static_cast<int>(info.output_height));
  while (info.output_scanline < info.output_height) {
    JSAMPLE* row = pixels.mutable_view().at(0, static_cast<int>(info.output_scanline));
    jpeg_read_scanlines(&info, &row, 1);
  }
  jpeg_finish_decompress(&info);
  jpeg_destroy_decompress(&info);
  return pixels;
}

// The floor that the costs of a correction are told in: decoding and encoding 12 megapixels with
// nothing between, on one thread.
inline void Floor(benchmark::State& state) {
  const std::vector<std::uint8_t> file =
      EncodedByLibjpeg(GeneratedPicture::OfMegapixels(12)->view());
  for (auto _ : state) {
    benchmark::DoNotOptimize(EncodedByLibjpeg(DecodedByLibjpeg(file).view()));
  }
}
BENCHMARK(Floor)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();

}  // namespace tarnwell
