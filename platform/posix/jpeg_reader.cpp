#include "platform/posix/jpeg_reader.h"

#include <memory>

#include "imaging/jpeg_structure.h"
#include "platform/memory_limit.h"
#include "platform/posix/jpeg_steps.h"

namespace tarnwell {
namespace {

struct Closer {
  void operator()(JpegDecoder* decoder) const {
    CloseJpeg(decoder);
    delete decoder;
  }
};

Status ProblemStatus(const JpegErrors& errors, const std::string& name) {
  switch (errors.problem) {
    case JpegProblem::kUnsupported:
      return Status::Error(Failure::kUnsupported,
                           name + ": a kind of JPEG that cannot be read (" + errors.text + ")");
    case JpegProblem::kCancelled:
      return Status::Cancelled(name);
    case JpegProblem::kTooLarge:
      return Status::Error(Failure::kTooLarge, name + ": the picture is too large");
    default:
      if (errors.breaks_off)
        return Status::Error(Failure::kDamaged, name + ": the file breaks off");
      return Status::Error(Failure::kDamaged,
                           name + ": the picture data is damaged (" + errors.text + ")");
  }
}

// Four inks to blue, green, red, 0. Files with an Adobe marker store the inks inverted, which is
// then already the light that each lets through.
void InksToLight(MutablePixelView picture, bool inverted) {
  const unsigned flip = inverted ? 0 : 255;
  for (std::size_t i = 0; i < picture.pixel_count(); ++i) {
    std::uint8_t* pixel = picture.data + i * kBytesPerPixel;
    const unsigned black = pixel[3] ^ flip;
    const unsigned red = ((pixel[0] ^ flip) * black + 127) / 255;
    const unsigned green = ((pixel[1] ^ flip) * black + 127) / 255;
    const unsigned blue = ((pixel[2] ^ flip) * black + 127) / 255;
    pixel[kBlue] = static_cast<std::uint8_t>(blue);
    pixel[kGreen] = static_cast<std::uint8_t>(green);
    pixel[kRed] = static_cast<std::uint8_t>(red);
    pixel[kUnused] = 0;
  }
}

}  // namespace

Result<Picture> DecodeJpeg(std::string_view bytes, const std::string& name, const GoOn& go_on) {
  const Result<PictureSize> checked = CheckJpeg(bytes, name);
  if (!checked.ok()) return checked.status;
  const std::unique_ptr<JpegDecoder, Closer> decoder(new JpegDecoder{});
  if (!ReadJpegHeader(decoder.get(), reinterpret_cast<const std::uint8_t*>(bytes.data()),
                      bytes.size(), go_on)) {
    return ProblemStatus(decoder->errors, name);
  }
  const jpeg_decompress_struct& info = decoder->info;
  if (!MemoryHoldsPicture(info.image_width, info.image_height)) {
    return Status::Error(Failure::kTooLarge, name + ": the picture is too large");
  }
  const auto pixels = TryMakePixels(info.image_width, info.image_height);
  if (!pixels) return Status::Error(Failure::kTooLarge, name + ": not enough memory");
  const MutablePixelView view = pixels->mutable_view();
  if (!ReadJpegRows(decoder.get(), view.data, view.stride())) {
    return ProblemStatus(decoder->errors, name);
  }
  if (IsFourInks(*decoder)) InksToLight(view, info.saw_Adobe_marker);
  return Picture(pixels);
}

}  // namespace tarnwell
