#pragma once

// The steps of libjpeg that can fail, for reading and for writing.
//
// libjpeg reports an error by a long jump out of its depth. The jump starts and ends inside one of
// the functions below; they and what they call hold nothing that has a destructor, so nothing is
// skipped. Callers own all memory and see plain results.

#include <csetjmp>
#include <cstddef>
#include <cstdint>
#include <cstdio>  // libjpeg's header needs it before
#include <jpeglib.h>

#include "imaging/jpeg_huffman.h"
#include "platform/events.h"

namespace tarnwell {

enum class JpegProblem {
  kNone,
  kDamaged,      // data is missing or contradicts itself
  kUnsupported,  // a kind of JPEG that the library does not decode
  kTooLarge,     // more memory or more work than a photo may need
  kCancelled,
};

struct JpegErrors {
  jpeg_error_mgr manager;  // first: libjpeg hands back its address
  std::jmp_buf escape;
  JpegProblem problem;
  bool breaks_off;             // damaged, because the file ends too early
  char text[JMSG_LENGTH_MAX];  // libjpeg's own words
};

struct JpegDecoder {
  jpeg_decompress_struct info;
  JpegErrors errors;
  jpeg_progress_mgr progress;
  const GoOn* go_on;  // asked now and then whether to decode on
};

// Reads up to the first scan. `bytes` and `go_on` must outlive the decoder.
// CloseJpeg is due afterwards in any case. False on failure, as in the functions that follow;
// errors.problem then tells why.
bool ReadJpegHeader(JpegDecoder* decoder, const std::uint8_t* bytes, std::size_t size,
                    const GoOn& go_on);

// Decodes into rows of 4 bytes per pixel: blue, green, red and 0, or cyan,
// magenta, yellow and black for a picture of four inks. Reads on to the end marker.
bool ReadJpegRows(JpegDecoder* decoder, std::uint8_t* rows, std::size_t row_bytes);

void CloseJpeg(JpegDecoder* decoder);

// Whether the picture comes as four inks.
bool IsFourInks(const JpegDecoder& decoder);

// Rows of pixels: blue, green, red, and perhaps a fourth byte that does not matter.
struct JpegRows {
  const std::uint8_t* top = nullptr;  // the top row
  std::ptrdiff_t step = 0;            // bytes from a row to the one below it
  int width = 0;
  int height = 0;
  int pixel_bytes = 3;  // 3 or 4
  // Of each `every` bands of that many rows, only the first one is there; 0: the rows follow each
  // other.
  int band = 0;
  int every = 1;
};

// How they are encoded, as YCbCr.
struct JpegCoding {
  int quality = 0;                // 0 to 100
  bool half_chrominance = false;  // chrominance of half resolution in both directions, or of full
  int restart_interval = 0;       // units between two restart markers; 0 is none
  // Four tables in the order of kHuffmanTables, in the place of those.
  const FittedHuffmanTable* tables = nullptr;
  // Room taken for the file at first; a good guess saves copying and memory.
  std::size_t expected_bytes = 4096;
};

// Bytes of malloc.
struct JpegBytes {
  std::uint8_t* data = nullptr;
  std::size_t size = 0;
};

// Encodes a whole file into `file`, which is empty before and the caller's to free in any case.
// False when the library refuses the size or memory does not suffice.
bool EncodeJpegRows(const JpegRows& rows, const JpegCoding& coding, JpegBytes& file);

}  // namespace tarnwell
