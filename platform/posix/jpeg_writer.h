#pragma once

#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "imaging/jpeg_stripes.h"
#include "platform/events.h"
#include "platform/posix/jpeg_steps.h"

namespace tarnwell {

// A file from the encoder.
struct EncodedBytes {
  struct Free {
    void operator()(std::uint8_t* memory) const { std::free(memory); }
  };
  std::unique_ptr<std::uint8_t, Free> data;
  std::size_t size = 0;

  std::string_view view() const { return {reinterpret_cast<const char*>(data.get()), size}; }
};

// A picture's file in the pieces that the encoder made: put together only on the disk.
struct EncodedPicture {
  std::vector<EncodedBytes> stripes;  // where the pieces of the file lie
  JpegInPieces file;
};

// A baseline JPEG file of `rows`, encoded on up to `threads` threads; the same for any number of
// them. Nothing when memory does not suffice or `go_on`, which is asked on the calling thread, ends
// it.
std::optional<EncodedPicture> EncodeJpegPicture(const JpegRows& rows, int quality,
                                                bool half_chrominance, int threads,
                                                const GoOn& go_on = ToTheEnd);

}  // namespace tarnwell
