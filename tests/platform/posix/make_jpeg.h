#pragma once

#include <cstdio>  // libjpeg's header needs it before
#include <cstdlib>
#include <jpeglib.h>
#include <string>
#include <vector>

namespace tarnwell {

// What MakeJpeg writes. `samples` are in the order of `input`, `width` x `height` x channels.
struct JpegRecipe {
  int width = 0;
  int height = 0;
  J_COLOR_SPACE input = JCS_RGB;
  J_COLOR_SPACE stored = JCS_YCbCr;
  bool progressive = false;
  bool arithmetic = false;
  bool adobe_marker = true;  // only asked for CMYK and YCCK
  int chrominance = 1;       // is stored at one so-manyth of the resolution, both ways
  unsigned restart_interval = 0;
  std::vector<unsigned char> samples = {};
};

// A JPEG file of an odd kind, at quality 100. Faults in a recipe end the test
// program, libjpeg telling which.
inline std::string MakeJpeg(const JpegRecipe& recipe) {
  jpeg_compress_struct info = {};
  jpeg_error_mgr errors;
  info.err = jpeg_std_error(&errors);
  jpeg_create_compress(&info);
  unsigned char* bytes = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&info, &bytes, &size);
  info.image_width = static_cast<JDIMENSION>(recipe.width);
  info.image_height = static_cast<JDIMENSION>(recipe.height);
  info.input_components = recipe.input == JCS_CMYK ? 4 : recipe.input == JCS_GRAYSCALE ? 1 : 3;
  info.in_color_space = recipe.input;
  jpeg_set_defaults(&info);
  jpeg_set_colorspace(&info, recipe.stored);
  jpeg_set_quality(&info, 100, TRUE);
  for (int i = 0; i < info.num_components; ++i) {
    info.comp_info[i].h_samp_factor = info.comp_info[i].v_samp_factor = 1;
  }
  info.comp_info[0].h_samp_factor = info.comp_info[0].v_samp_factor = recipe.chrominance;
  info.restart_interval = recipe.restart_interval;
  if (recipe.arithmetic) info.arith_code = TRUE;
  if (recipe.progressive) jpeg_simple_progression(&info);
  if (!recipe.adobe_marker) info.write_Adobe_marker = FALSE;
  jpeg_start_compress(&info, TRUE);
  const std::size_t row_bytes = static_cast<std::size_t>(recipe.width * info.input_components);
  while (info.next_scanline < info.image_height) {
    auto* row = const_cast<JSAMPROW>(&recipe.samples[info.next_scanline * row_bytes]);
    jpeg_write_scanlines(&info, &row, 1);
  }
  jpeg_finish_compress(&info);
  jpeg_destroy_compress(&info);
  std::string made(reinterpret_cast<char*>(bytes), size);
  std::free(bytes);
  return made;
}

}  // namespace tarnwell
