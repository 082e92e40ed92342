#include "platform/posix/jpeg_steps.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>
#include <cstring>
#include <jerror.h>

namespace tarnwell {
namespace {

// libjpeg keeps the coefficients of a progressive picture in memory: up to 8 bytes per pixel. This
// is enough for 250 megapixels.
constexpr long kMostCoefficientBytes = 2'000'000'000;

JpegProblem ProblemOfError(int code) {
  switch (code) {
    case JERR_SOF_UNSUPPORTED:
    case JERR_BAD_PRECISION:
    case JERR_ARITH_NOTIMPL:
    case JERR_CONVERSION_NOTIMPL:
    case JERR_NOT_COMPILED:
    case JERR_NOTIMPL:
    case JERR_COMPONENT_COUNT:
    case JERR_CCIR601_NOTIMPL:
    case JERR_FRACT_SAMPLE_NOTIMPL:
    case JERR_EMPTY_IMAGE:
      return JpegProblem::kUnsupported;
    case JERR_OUT_OF_MEMORY:
    case JERR_NO_BACKING_STORE:
    case JERR_IMAGE_TOO_BIG:
    case JERR_WIDTH_OVERFLOW:
      return JpegProblem::kTooLarge;
    default:
      return JpegProblem::kDamaged;
  }
}

// Warnings after which every pixel is still what the file says: stray bytes between two markers,
// odd but readable headers.
bool IsHarmless(int code) {
  return code == JWRN_EXTRANEOUS_DATA || code == JWRN_ADOBE_XFORM || code == JWRN_JFIF_MAJOR ||
         code == JWRN_BOGUS_ICC || code == JWRN_NOT_SEQUENTIAL;
}

[[noreturn]] void Escape(j_common_ptr info, JpegProblem problem) {
  auto* errors = reinterpret_cast<JpegErrors*>(info->err);
  errors->problem = problem;
  errors->breaks_off =
      info->err->msg_code == JWRN_JPEG_EOF || info->err->msg_code == JERR_INPUT_EMPTY;
  info->err->format_message(info, errors->text);
  std::longjmp(errors->escape, 1);
}

[[noreturn]] void OnError(j_common_ptr info) { Escape(info, ProblemOfError(info->err->msg_code)); }

// libjpeg would go on with grey where data is missing; a photo is taken whole or not at all.
void OnMessage(j_common_ptr info, int level) {
  if (level < 0 && !IsHarmless(info->err->msg_code)) Escape(info, JpegProblem::kDamaged);
}

void OnProgress(j_common_ptr common) {
  const auto* info = reinterpret_cast<j_decompress_ptr>(common);
  const auto* decoder = static_cast<const JpegDecoder*>(common->client_data);
  if (!(*decoder->go_on)(1.0 * info->output_scanline / info->image_height)) {
    Escape(common, JpegProblem::kCancelled);
  }
}

void SetUp(JpegErrors* errors) {
  jpeg_std_error(&errors->manager);
  errors->manager.error_exit = OnError;
  errors->manager.emit_message = OnMessage;
  errors->problem = JpegProblem::kNone;
  errors->breaks_off = false;
  errors->text[0] = '\0';
}

void PutTable(const FittedHuffmanTable& from, JHUFF_TBL* to) {
  to->bits[0] = 0;
  std::copy_n(from.counts.begin(), from.counts.size(), to->bits + 1);
  std::copy_n(from.symbols.begin(), from.symbols.size(), to->huffval);
}

// Where the library writes: a file that knows its memory at any moment, also when the library
// breaks off.
struct Destination {
  jpeg_destination_mgr manager;  // first: libjpeg hands back its address
  JpegBytes* file;               // its size is the room that there is
};

bool MakeRoom(Destination* destination, std::size_t size) {
  JpegBytes* file = destination->file;
  auto* data = static_cast<std::uint8_t*>(std::realloc(file->data, size));
  if (data == nullptr) return false;
  destination->manager.next_output_byte = data + file->size;
  destination->manager.free_in_buffer = size - file->size;
  *file = {data, size};
  return true;
}

void OnFirstByte(j_compress_ptr) {}

// The library takes the room as used up, whatever it says is left.
boolean OnFullBuffer(j_compress_ptr info) {
  auto* destination = reinterpret_cast<Destination*>(info->dest);
  const std::size_t size = destination->file->size;
  if (!MakeRoom(destination, size + size / 2)) ERREXIT1(info, JERR_OUT_OF_MEMORY, 0);
  return TRUE;
}

void OnLastByte(j_compress_ptr info) {
  auto* destination = reinterpret_cast<Destination*>(info->dest);
  JpegBytes* file = destination->file;
  file->size -= destination->manager.free_in_buffer;
  // The rest of the room goes back; where it cannot, nothing is lost.
  void* data = std::realloc(file->data, file->size);
  if (data != nullptr) file->data = static_cast<std::uint8_t*>(data);
}

void SetUp(Destination* destination) {
  destination->manager.init_destination = OnFirstByte;
  destination->manager.empty_output_buffer = OnFullBuffer;
  destination->manager.term_destination = OnLastByte;
}

void Encode(jpeg_compress_struct* info, const JpegRows* rows, const JpegCoding* coding,
            Destination* destination) {
  jpeg_create_compress(info);
  if (!MakeRoom(destination, coding->expected_bytes)) ERREXIT1(info, JERR_OUT_OF_MEMORY, 0);
  info->dest = &destination->manager;
  info->image_width = static_cast<JDIMENSION>(rows->width);
  info->image_height = static_cast<JDIMENSION>(rows->height);
  info->input_components = rows->pixel_bytes;
  info->in_color_space = rows->pixel_bytes == 4 ? JCS_EXT_BGRX : JCS_EXT_BGR;
  jpeg_set_defaults(info);
  jpeg_set_quality(info, coding->quality, TRUE);
  if (!coding->half_chrominance) {
    info->comp_info[0].h_samp_factor = info->comp_info[0].v_samp_factor = 1;
  }
  if (coding->tables != nullptr) {
    for (int i = 0; i < 2; ++i) {
      PutTable(coding->tables[2 * i], info->dc_huff_tbl_ptrs[i]);
      PutTable(coding->tables[2 * i + 1], info->ac_huff_tbl_ptrs[i]);
    }
  }
  info->restart_interval = static_cast<unsigned>(coding->restart_interval);
  jpeg_start_compress(info, TRUE);
  while (info->next_scanline < info->image_height) {
    auto y = static_cast<std::ptrdiff_t>(info->next_scanline);
    if (rows->band > 0) y += y / rows->band * rows->band * (rows->every - 1);
    auto* row = const_cast<JSAMPROW>(rows->top + y * rows->step);
    jpeg_write_scanlines(info, &row, 1);
  }
  jpeg_finish_compress(info);
}

// The library fills the fourth byte of a pixel with what it likes; pictures have 0 there. Done
// while the row is still in the nearest cache.
void ClearUnused(std::uint8_t* row, JDIMENSION width) {
  constexpr auto kColours =
      std::bit_cast<std::uint32_t>(std::array<std::uint8_t, 4>{255, 255, 255, 0});
  for (JDIMENSION x = 0; x < width; ++x, row += 4) {
    std::uint32_t pixel;
    std::memcpy(&pixel, row, sizeof(pixel));
    pixel &= kColours;
    std::memcpy(row, &pixel, sizeof(pixel));
  }
}

}  // namespace

bool ReadJpegHeader(JpegDecoder* decoder, const std::uint8_t* bytes, std::size_t size,
                    const GoOn& go_on) {
  jpeg_decompress_struct* info = &decoder->info;
  *info = {};
  SetUp(&decoder->errors);
  info->err = &decoder->errors.manager;
  if (setjmp(decoder->errors.escape) != 0) return false;
  jpeg_create_decompress(info);
  info->client_data = decoder;
  decoder->go_on = &go_on;
  info->mem->max_memory_to_use = kMostCoefficientBytes;
  decoder->progress = {};
  decoder->progress.progress_monitor = OnProgress;
  info->progress = &decoder->progress;
  jpeg_mem_src(info, bytes, size);
  jpeg_read_header(info, TRUE);
  info->out_color_space = IsFourInks(*decoder) ? JCS_CMYK : JCS_EXT_BGRX;
  return true;
}

bool ReadJpegRows(JpegDecoder* decoder, std::uint8_t* rows, std::size_t row_bytes) {
  jpeg_decompress_struct* info = &decoder->info;
  if (setjmp(decoder->errors.escape) != 0) return false;
  jpeg_start_decompress(info);
  while (info->output_scanline < info->output_height) {
    JSAMPROW row = rows + info->output_scanline * row_bytes;
    jpeg_read_scanlines(info, &row, 1);
    if (info->out_color_space != JCS_CMYK) ClearUnused(row, info->output_width);
  }
  jpeg_finish_decompress(info);
  return true;
}

void CloseJpeg(JpegDecoder* decoder) { jpeg_destroy_decompress(&decoder->info); }

bool IsFourInks(const JpegDecoder& decoder) {
  return decoder.info.jpeg_color_space == JCS_CMYK || decoder.info.jpeg_color_space == JCS_YCCK;
}

bool EncodeJpegRows(const JpegRows& rows, const JpegCoding& coding, JpegBytes& file) {
  jpeg_compress_struct info = {};
  JpegErrors errors;
  SetUp(&errors);
  info.err = &errors.manager;
  Destination destination = {{}, &file};
  SetUp(&destination);
  if (setjmp(errors.escape) == 0) Encode(&info, &rows, &coding, &destination);
  jpeg_destroy_compress(&info);
  return errors.problem == JpegProblem::kNone;
}

}  // namespace tarnwell
