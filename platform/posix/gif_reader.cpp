#include "platform/posix/gif_reader.h"

#include <algorithm>
#include <cstring>
#include <gif_lib.h>
#include <memory>
#include <vector>

#include "imaging/gif_structure.h"
#include "platform/memory_limit.h"

namespace tarnwell {
namespace {

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

// Reads up to and including the header of the first frame. False on failure.
bool FindFirstFrame(GifFileType* gif, int& transparent) {
  for (;;) {
    GifRecordType record;
    if (DGifGetRecordType(gif, &record) == GIF_ERROR) return false;
    if (record == IMAGE_DESC_RECORD_TYPE) return DGifGetImageDesc(gif) != GIF_ERROR;
    if (record == TERMINATE_RECORD_TYPE || !ReadExtension(gif, transparent)) return false;
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

// False when the data ends or `go_on` ends it.
bool DrawFrame(GifFileType* gif, const ColorMapObject& colours, int transparent,
               MutablePixelView screen, const GoOn& go_on) {
  const GifImageDesc& frame = gif->Image;
  std::vector<GifPixelType> row(static_cast<std::size_t>(frame.Width));
  int rows_done = 0;
  const auto draw_run = [&](Run run) {
    for (int y = run.first; y < frame.Height; y += run.step, ++rows_done) {
      if (!go_on(1.0 * rows_done / frame.Height)) return false;
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

Result<Picture> DecodeGif(std::string_view bytes, const std::string& name, const GoOn& go_on) {
  const Result<GifFirstFrame> place = FindGifFirstFrame(bytes, name);
  if (!place.ok()) return place.status;
  if (!MemoryHoldsPicture(place->screen_width, place->screen_height)) {
    return Status::Error(Failure::kTooLarge, name + ": the picture is too large");
  }
  std::string_view rest = bytes;
  int error = 0;
  const std::unique_ptr<GifFileType, Closer> gif(DGifOpen(&rest, ReadFromMemory, &error));
  if (!gif) return Status::Error(Failure::kDamaged, name + ": the file breaks off");
  int transparent = NO_TRANSPARENT_COLOR;
  if (!FindFirstFrame(gif.get(), transparent)) return Damaged(name, *gif);
  const ColorMapObject* colours =
      gif->Image.ColorMap != nullptr ? gif->Image.ColorMap : gif->SColorMap;
  if (colours == nullptr) return Status::Error(Failure::kDamaged, name + ": holds no colours");

  const auto pixels = TryMakePixels(place->screen_width, place->screen_height);
  if (!pixels) return Status::Error(Failure::kTooLarge, name + ": not enough memory");
  FillWhite(pixels->mutable_view());
  const bool drawn = DrawFrame(gif.get(), *colours, transparent, pixels->mutable_view(), go_on);
  if (!go_on(1)) return Status::Cancelled(name);
  if (!drawn) return Damaged(name, *gif);
  return Picture(pixels);
}

}  // namespace tarnwell
