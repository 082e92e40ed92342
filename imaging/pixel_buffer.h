#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "imaging/pixel_array.h"

namespace tarnwell {

class PendingEvents;

// A picture box: a persistent drawing image, and the picture that is displayed. Pictures are shared
// between surfaces and never changed in place.
struct PictureSurface {
  Picture image;    // the drawing image
  Picture picture;  // the displayed picture; null is the empty picture
  bool visible = false;
  double left = 0;  // pixels inside the container; a half pixel may occur
  double top = 0;
  int width = 0;  // pixels
  int height = 0;
  bool turned = false;  // by a run since the photo was opened; kept for picOriginal and picSource
};

// Gives `surface` the displayed picture `picture`, which is drawn at once, and takes its size.
void Display(PictureSurface& surface, Picture picture);

// The picture boxes of the main window, by role.
struct PhotoSurfaces {
  PictureSurface picOriginal;    // the photo as opened, full size; never corrected
  PictureSurface picSource;      // the working image: read, corrected, written back, saved
  PictureSurface picThumb;       // the preview, at most 320 x 320, centred in picTContainer
  PictureSurface picTContainer;  // the 320 x 320 frame that carries the preview's shadow
  PictureSurface picGraphic;     // a fixed graphic
  PictureSurface picReturn;      // the return surface
  std::weak_ptr<const PixelArray> thumbnail_of;  // what picThumb shows small
};

// Makes the photo as opened the working image.
void ShowOriginalAsSource(PhotoSurfaces& surfaces);

// The bitmap header of a transfer; fields in record order.
struct BitmapHeader {
  std::uint32_t size = 40;
  std::int32_t width = 0;
  std::int32_t height = 0;  // negative: rows stored top to bottom
  std::uint16_t planes = 1;
  std::uint16_t bits_per_pixel = 32;
  std::uint32_t compression = 0;
  std::uint32_t image_bytes = 0;
  std::int32_t pixels_per_metre_x = 0;
  std::int32_t pixels_per_metre_y = 0;
  std::uint32_t colours_used = 0;
  std::uint32_t colours_important = 0;

  bool operator==(const BitmapHeader&) const = default;
};

// The header of a 32-bit top-down picture of this size.
BitmapHeader HeaderFor(int width, int height);

// ((width x bits + 31) \ 32) x 4: bytes per row of a picture of 32 bits per pixel.
int BytesPerRow(int width);
// BytesPerRow less the bytes that pixels fill: always 0 at 32 bits.
int RowPadding(int width);

// The surfaces and the pixel arrays read from them.
struct PixelBuffer {
  PhotoSurfaces surfaces;
  BitmapHeader header;  // describes the last transfer
  int bytes_per_row = 0;
  int row_padding = 0;
  int width = 0;  // of the working pixels
  int height = 0;
  // The working pixels as they were read. Nobody changes a shared picture, so this is no copy, and
  // the noise reference as well.
  Picture read;
  // The working pixels from the first change on; null before, when `read` stands for them.
  std::shared_ptr<PixelArray> working;
  Picture graphic;
  bool shows_container = true;  // whether anybody will see the preview's shadow
  // Size of the preview when its shadow was last drawn.
  int shadow_width = 0;
  int shadow_height = 0;
  // Offers the tip about the preview whenever a new one is shown; set by the host.
  std::function<void()> OfferPreviewTip = [] {};
};

// Which surface ReadSourcePixels takes as the working image.
enum class PixelSource { kSourceAsItStands = 0, kThumbnail = 1, kOriginal = 2 };

// Takes a surface as the working image and reads it into the working pixels. False, with the
// working pixels as they were, when the surface is empty.
bool ReadSourcePixels(PixelBuffer& buffer, PixelSource source);

// The working pixels as they stand; empty before the first read.
PixelView WorkingPixels(const PixelBuffer& buffer);

// Makes `working` new memory beside `read`, for a pass that fills and then changes it. False when
// memory does not suffice.
bool MakeNewWorkingPixels(PixelBuffer& buffer);

// Makes `working`, for a pass that writes every pixel of it and takes them from `read`: the memory
// of `read` itself where nobody else holds that picture, otherwise new memory. False when it does
// not suffice.
bool MakeWorkingPixels(PixelBuffer& buffer);

// Reads picGraphic into the graphic pixels.
void ReadGraphicPixels(PixelBuffer& buffer);

// Makes the working pixels the displayed picture of picSource, at left 0, top 0 and their size,
// then rebuilds the preview. The buffer gives its working pixels away: read before changing again.
// Without working pixels nothing happens.
void WriteSourcePixels(PixelBuffer& buffer, PendingEvents& events);

// Puts `pixels`, of the buffer's new size, in place of the working pixels and rebuilds the header.
void ReplaceWorkingPixels(PixelBuffer& buffer, std::shared_ptr<PixelArray> pixels);

}  // namespace tarnwell
