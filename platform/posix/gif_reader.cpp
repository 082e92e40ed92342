#include "platform/posix/gif_reader.h"

#include <algorithm>
#include <cstring>
#include <gif_lib.h>
#include <memory>
#include <vector>

#include "platform/posix/memory_limit.h"

namespace tarnwell {
namespace {

// A compressed code has at least 2 bits and stands for at most 4096 pixels.
constexpr std::uint64_t kMostPixelsPerByte = 4 * 4096;

// Interlaced rows come in four runs.
struct Run {
  int first;
  int step;
};
constexpr Run kInterlacedRuns[] = {{0, 8}, {4, 8}, {2, 4}, {1, 2}};
constexpr Run kPlainRuns[] = {{0, 1}};

struct Closer {
  void operator()(GifFileType* gif) const { DGifCloseFile(gif, nullptr); }
};

int ReadFromMemory(GifFileType* gif, GifByteType* to, int count) {
  auto& rest = *static_cast<std::string_view*>(gif->UserData);
  const std::size_t given = std::min(rest.size(), static_cast<std::size_t>(std::max(count, 0)));
  std::memcpy(to, rest.data(), given);
  rest.remove_prefix(given);
  return static_cast<int>(given);
}

Status Damaged(const std::string& name, const GifFileType& gif) {
  if (gif.Error == D_GIF_ERR_READ_FAILED || gif.Error == D_GIF_ERR_EOF_TOO_SOON) {
    return Status::Error(Failure::kDamaged, name + ": the file breaks off");
  }
  if (gif.Error == D_GIF_ERR_NOT_ENOUGH_MEM) {
    return Status::Error(Failure::kTooLarge, name + ": not enough memory");
  }
  return Status::Error(Failure::kDamaged, name + ": the picture data is damaged");
}

// Reads an extension; the transparent colour is taken over when it tells one.
bool ReadExtension(GifFileType* gif, int& transparent) {
  int code = 0;
  GifByteType* block = nullptr;
  if (DGifGetExtension(gif, &code, &block) == GIF_ERROR) return false;
  while (block != nullptr) {
    GraphicsControlBlock control;
    if (code == GRAPHICS_EXT_FUNC_CODE &&
        DGifExtensionToGCB(block[0], block + 1, &control) == GIF_OK) {
      transparent = control.TransparentColor;
    }
    if (DGifGetExtensionNext(gif, &block) == GIF_ERROR) return false;
  }
  return true;
}

enum class Found { kFrame, kNoFrame, kFailed };

// Reads up to and including the header of the first frame.
Found FindFirstFrame(GifFileType* gif, int& transparent) {
  for (;;) {
    GifRecordType record;
    if (DGifGetRecordType(gif, &record) == GIF_ERROR) return Found::kFailed;
    if (record == TERMINATE_RECORD_TYPE) return Found::kNoFrame;
    if (record == IMAGE_DESC_RECORD_TYPE) {
      return DGifGetImageDesc(gif) == GIF_ERROR ? Found::kFailed : Found::kFrame;
    }
    if (!ReadExtension(gif, transparent)) return Found::kFailed;
  }
}

// Draws row `y` of the frame onto the screen, as far as it lies inside.
void DrawRow(const GifImageDesc& frame, const ColorMapObject& colours, int transparent, int y,
             const std::vector<GifPixelType>& row, MutablePixelView screen) {
  if (frame.Top + y >= screen.height) return;
  const int width = std::min(frame.Width, screen.width - frame.Left);
  for (int x = 0; x < width; ++x) {
    const int index = row[static_cast<std::size_t>(x)];
    if (index == transparent || index >= colours.ColorCount) continue;
    std::uint8_t* pixel = screen.at(frame.Left + x, frame.Top + y);
    pixel[kBlue] = colours.Colors[index].Blue;
    pixel[kGreen] = colours.Colors[index].Green;
    pixel[kRed] = colours.Colors[index].Red;
  }
}

bool DrawFrame(GifFileType* gif, const ColorMapObject& colours, int transparent,
               MutablePixelView screen) {
  const GifImageDesc& frame = gif->Image;
  std::vector<GifPixelType> row(static_cast<std::size_t>(frame.Width));
  const auto draw_run = [&](Run run) {
    for (int y = run.first; y < frame.Height; y += run.step) {
      if (DGifGetLine(gif, row.data(), frame.Width) == GIF_ERROR) return false;
      DrawRow(frame, colours, transparent, y, row, screen);
    }
    return true;
  };
  return frame.Interlace ? std::ranges::all_of(kInterlacedRuns, draw_run)
                         : std::ranges::all_of(kPlainRuns, draw_run);
}

void FillWhite(MutablePixelView picture) {
  for (std::size_t i = 0; i < picture.pixel_count(); ++i) {
    constexpr std::uint8_t kWhite[kBytesPerPixel] = {255, 255, 255, 0};
    std::memcpy(picture.data + i * kBytesPerPixel, kWhite, kBytesPerPixel);
  }
}

}  // namespace

Result<Picture> DecodeGif(std::string_view bytes, const std::string& name) {
  std::string_view rest = bytes;
  int error = 0;
  const std::unique_ptr<GifFileType, Closer> gif(DGifOpen(&rest, ReadFromMemory, &error));
  if (!gif) return Status::Error(Failure::kDamaged, name + ": the file breaks off");
  int transparent = NO_TRANSPARENT_COLOR;
  const Found found = FindFirstFrame(gif.get(), transparent);
  if (found == Found::kFailed) return Damaged(name, *gif);
  const GifImageDesc& frame = gif->Image;
  if (found == Found::kNoFrame || frame.Width < 1 || frame.Height < 1) {
    return Status::Error(Failure::kDamaged, name + ": holds no picture");
  }
  const ColorMapObject* colours = frame.ColorMap != nullptr ? frame.ColorMap : gif->SColorMap;
  if (colours == nullptr) return Status::Error(Failure::kDamaged, name + ": holds no colours");

  // Some writers leave the screen's size out; the frame then is the picture.
  const int width = gif->SWidth > 0 ? gif->SWidth : frame.Width;
  const int height = gif->SHeight > 0 ? gif->SHeight : frame.Height;
  if (!MemoryHoldsPicture(width, height)) {
    return Status::Error(Failure::kTooLarge, name + ": the picture is too large");
  }
  const std::uint64_t frame_pixels = static_cast<std::uint64_t>(frame.Width) * frame.Height;
  if (frame_pixels > rest.size() * kMostPixelsPerByte) {
    return Status::Error(Failure::kDamaged, name + ": the file breaks off");
  }
  const auto pixels = TryMakePixels(width, height);
  if (!pixels) return Status::Error(Failure::kTooLarge, name + ": not enough memory");
  FillWhite(pixels->mutable_view());
  if (!DrawFrame(gif.get(), *colours, transparent, pixels->mutable_view())) {
    return Damaged(name, *gif);
  }
  return Picture(pixels);
}

}  // namespace tarnwell
