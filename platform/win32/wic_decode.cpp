#include "platform/win32/wic_decode.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

#include "imaging/gif_structure.h"
#include "imaging/jpeg_structure.h"
#include "platform/memory_limit.h"
#include "platform/win32/wic.h"

namespace tarnwell {
namespace {

// Rows that are asked for at once: the components refuse buffers of 2 GB and more.
constexpr int kBandRows = 64;

Status TooLarge(const std::string& path) {
  return Status::Error(Failure::kTooLarge, path + ": not enough memory");
}

// Opens the first frame of a file in memory. `bytes` must outlive the frame.
HRESULT OpenFirstFrame(IWICImagingFactory& factory, REFGUID format, std::string_view bytes,
                       ComPtr<IWICBitmapFrameDecode>& frame) {
  ComPtr<IWICStream> stream;
  ComPtr<IWICBitmapDecoder> decoder;
  HRESULT result = factory.CreateStream(&stream);
  if (FAILED(result)) return result;
  // The stream is read only; the call has no form for constant memory.
  auto* data = reinterpret_cast<BYTE*>(const_cast<char*>(bytes.data()));
  result = stream->InitializeFromMemory(data, static_cast<DWORD>(bytes.size()));
  if (FAILED(result)) return result;
  result = factory.CreateDecoder(format, nullptr, &decoder);
  if (FAILED(result)) return result;
  result = decoder->Initialize(stream.Get(), WICDecodeMetadataCacheOnDemand);
  if (FAILED(result)) return result;
  return decoder->GetFrame(0, &frame);
}

// Calls take(y, row) for each row of `source`, which has `width` x `height` pixels of
// `bytes_per_pixel`. E_ABORT when `go_on` ends it.
template <typename Take>
HRESULT ForEachRow(IWICBitmapSource& source, int width, int height, int bytes_per_pixel,
                   const GoOn& go_on, Take take) {
  const std::size_t stride = static_cast<std::size_t>(width) * bytes_per_pixel;
  std::vector<BYTE> band(stride * std::min(height, kBandRows));
  for (int top = 0; top < height; top += kBandRows) {
    if (!go_on(1.0 * top / height)) return E_ABORT;
    const int rows = std::min(kBandRows, height - top);
    const WICRect area = {0, top, width, rows};
    const HRESULT result = source.CopyPixels(&area, static_cast<UINT>(stride),
                                             static_cast<UINT>(stride * rows), band.data());
    if (FAILED(result)) return result;
    for (int row = 0; row < rows; ++row) take(top + row, band.data() + row * stride);
  }
  return S_OK;
}

std::uint8_t Multiply(int light, int black) {
  return static_cast<std::uint8_t>((light * black + 127) / 255);
}

// By hand: what the converters make of CMYK depends on the system's colour profiles.
HRESULT CopyCmyk(IWICBitmapSource& source, MutablePixelView pixels, const GoOn& go_on) {
  return ForEachRow(source, pixels.width, pixels.height, 4, go_on, [&](int y, const BYTE* row) {
    for (int x = 0; x < pixels.width; ++x, row += 4) {
      std::uint8_t* pixel = pixels.at(x, y);
      const int light = 255 - row[3];
      pixel[kRed] = Multiply(255 - row[0], light);
      pixel[kGreen] = Multiply(255 - row[1], light);
      pixel[kBlue] = Multiply(255 - row[2], light);
    }
  });
}

HRESULT CopyConverted(IWICImagingFactory& factory, IWICBitmapSource& source,
                      MutablePixelView pixels, const GoOn& go_on) {
  ComPtr<IWICFormatConverter> converter;
  HRESULT result = factory.CreateFormatConverter(&converter);
  if (FAILED(result)) return result;
  result = converter->Initialize(&source, GUID_WICPixelFormat32bppBGR, WICBitmapDitherTypeNone,
                                 nullptr, 0, WICBitmapPaletteTypeCustom);
  if (FAILED(result)) return result;
  return ForEachRow(*converter.Get(), pixels.width, pixels.height, kBytesPerPixel, go_on,
                    [&](int y, const BYTE* row) {
                      std::uint8_t* pixel = pixels.at(0, y);
                      for (int x = 0; x < pixels.width;
                           ++x, row += kBytesPerPixel, pixel += kBytesPerPixel) {
                        pixel[kBlue] = row[kBlue];
                        pixel[kGreen] = row[kGreen];
                        pixel[kRed] = row[kRed];
                      }
                    });
}

// The colours of `frame` by index; transparent behind the end of its palette.
HRESULT ReadPalette(IWICImagingFactory& factory, IWICBitmapFrameDecode& frame,
                    std::array<WICColor, 256>& colours) {
  ComPtr<IWICPalette> palette;
  HRESULT result = factory.CreatePalette(&palette);
  if (SUCCEEDED(result)) result = frame.CopyPalette(palette.Get());
  if (FAILED(result)) return result;
  colours.fill(0);
  UINT count = 0;
  return palette->GetColors(static_cast<UINT>(colours.size()), colours.data(), &count);
}

// Places the frame on the screen; a pixel that is transparent leaves what is there.
HRESULT PlaceGifFrame(IWICImagingFactory& factory, IWICBitmapFrameDecode& frame,
                      const GifFirstFrame& place, MutablePixelView screen, const GoOn& go_on) {
  WICPixelFormatGUID format;
  HRESULT result = frame.GetPixelFormat(&format);
  if (FAILED(result)) return result;
  if (format != GUID_WICPixelFormat8bppIndexed) return WINCODEC_ERR_UNSUPPORTEDPIXELFORMAT;
  std::array<WICColor, 256> colours;
  result = ReadPalette(factory, frame, colours);
  if (FAILED(result)) return result;
  return ForEachRow(frame, place.width, place.height, 1, go_on, [&](int y, const BYTE* row) {
    for (int x = 0; x < place.width; ++x) {
      const WICColor colour = colours[row[x]];
      if (colour >> 24 == 0 || !screen.Contains(place.left + x, place.top + y)) continue;
      std::uint8_t* pixel = screen.at(place.left + x, place.top + y);
      pixel[kBlue] = static_cast<std::uint8_t>(colour);
      pixel[kGreen] = static_cast<std::uint8_t>(colour >> 8);
      pixel[kRed] = static_cast<std::uint8_t>(colour >> 16);
    }
  });
}

void FillWhite(MutablePixelView pixels) {
  for (std::size_t at = 0; at < pixels.byte_count(); at += kBytesPerPixel) {
    std::memset(pixels.data + at, 255, 3);
  }
}

HRESULT SizeOf(IWICBitmapSource& source, int& width, int& height) {
  UINT w = 0, h = 0;
  const HRESULT result = source.GetSize(&w, &h);
  if (FAILED(result)) return result;
  if (w < 1 || w > kMaxSide || h < 1 || h > kMaxSide) return WINCODEC_ERR_BADIMAGE;
  width = static_cast<int>(w);
  height = static_cast<int>(h);
  return S_OK;
}

}  // namespace

Result<Picture> DecodeJpegWithWic(std::string_view bytes, const std::string& path,
                                  const GoOn& go_on) {
  if (bytes.size() > std::numeric_limits<DWORD>::max()) return TooLarge(path);
  const Result<PictureSize> size = CheckJpeg(bytes, path);
  if (!size.ok()) return size.status;
  if (!MemoryHoldsPicture(size->width, size->height)) return TooLarge(path);
  const ComApartment apartment;
  ComPtr<IWICImagingFactory> factory;
  ComPtr<IWICBitmapFrameDecode> frame;
  int width = 0, height = 0;
  WICPixelFormatGUID format = {};
  HRESULT result = MakeImagingFactory(factory);
  if (SUCCEEDED(result)) {
    result = OpenFirstFrame(*factory.Get(), GUID_ContainerFormatJpeg, bytes, frame);
  }
  if (SUCCEEDED(result)) result = SizeOf(*frame.Get(), width, height);
  if (SUCCEEDED(result)) result = frame->GetPixelFormat(&format);
  if (FAILED(result)) return StatusOfImagingError(path, result);
  const std::shared_ptr<PixelArray> pixels = TryMakePixels(width, height);
  if (!pixels) return TooLarge(path);
  result = format == GUID_WICPixelFormat32bppCMYK
               ? CopyCmyk(*frame.Get(), pixels->mutable_view(), go_on)
               : CopyConverted(*factory.Get(), *frame.Get(), pixels->mutable_view(), go_on);
  if (FAILED(result)) return StatusOfImagingError(path, result);
  return Picture(pixels);
}

Result<Picture> DecodeGifWithWic(std::string_view bytes, const std::string& path,
                                 const GoOn& go_on) {
  const Result<GifFirstFrame> place = FindGifFirstFrame(bytes, path);
  if (!place.ok()) return place.status;
  if (!MemoryHoldsPicture(place->screen_width, place->screen_height)) return TooLarge(path);
  if (place->end >= std::numeric_limits<DWORD>::max()) return TooLarge(path);
  // The other frames of an animation are kept from the decoder: it would read, and could stumble
  // over, what nobody looks at.
  const std::string first_alone = std::string(bytes.substr(0, place->end)) + ';';
  const ComApartment apartment;
  ComPtr<IWICImagingFactory> factory;
  ComPtr<IWICBitmapFrameDecode> frame;
  int width = 0, height = 0;
  HRESULT result = MakeImagingFactory(factory);
  if (SUCCEEDED(result)) {
    result = OpenFirstFrame(*factory.Get(), GUID_ContainerFormatGif, first_alone, frame);
  }
  if (SUCCEEDED(result)) result = SizeOf(*frame.Get(), width, height);
  if (SUCCEEDED(result) && (width != place->width || height != place->height)) {
    result = WINCODEC_ERR_BADIMAGE;
  }
  if (FAILED(result)) return StatusOfImagingError(path, result);
  const std::shared_ptr<PixelArray> pixels =
      TryMakePixels(place->screen_width, place->screen_height);
  if (!pixels) return TooLarge(path);
  FillWhite(pixels->mutable_view());
  result = PlaceGifFrame(*factory.Get(), *frame.Get(), *place, pixels->mutable_view(), go_on);
  if (FAILED(result)) return StatusOfImagingError(path, result);
  return Picture(pixels);
}

}  // namespace tarnwell
