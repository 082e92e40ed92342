#include "imaging/thumbnail.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <memory>
#include <utility>
#include <vector>

#include "imaging/pixel_buffer.h"
#include "platform/events.h"

namespace tarnwell {
namespace {

// The side that goes with a longer side of 320. The division comes first: the other order rounds
// some proportions differently.
int ShorterSide(int longer, int shorter) {
  const double side = static_cast<double>(kThumbnailSide) / longer * shorter;
  return std::max(1, static_cast<int>(std::nearbyint(side)));
}

// The source position under the middle of target position `i`, for a side of `from` pixels
// stretched to `to`.
int NearestSource(int i, int from, int to) {
  return static_cast<int>((2 * static_cast<std::int64_t>(i) + 1) * from / (2 * to));
}

// Draws the shadow of a thumbnail that is seen and whose size changed since the last drawing.
void DrawShadow(PixelBuffer& buffer) {
  const PictureSurface& thumb = buffer.surfaces.picThumb;
  if (!thumb.visible || !buffer.shows_container) return;
  if (thumb.width == buffer.shadow_width && thumb.height == buffer.shadow_height) return;
  std::shared_ptr<PixelArray> container = TryMakePixels(kThumbnailSide, kThumbnailSide);
  if (!container) return;

  const MutablePixelView pixels = container->mutable_view();
  std::fill_n(pixels.data, pixels.byte_count(), kContainerGrey);
  DarkenShadow(pixels, {thumb.width, thumb.height});
  Display(buffer.surfaces.picTContainer, std::move(container));
  buffer.shadow_width = thumb.width;
  buffer.shadow_height = thumb.height;
}

}  // namespace

PictureSize ThumbnailSizeFor(int width, int height) {
  if (width < kThumbnailSide && height < kThumbnailSide) return {width, height};
  if (width <= height) return {ShorterSide(height, width), kThumbnailSide};
  return {kThumbnailSide, ShorterSide(width, height)};
}

Picture StretchPicture(const PixelView& source, PictureSize size) {
  if (source.empty()) return nullptr;
  std::shared_ptr<PixelArray> stretched = TryMakePixels(size.width, size.height);
  if (!stretched) return nullptr;
  const MutablePixelView target = stretched->mutable_view();
  std::vector<std::size_t> from(target.width);  // bytes from the row's start
  for (int x = 0; x < target.width; ++x) {
    from[x] = std::size_t{kBytesPerPixel} * NearestSource(x, source.width, target.width);
  }
  for (int y = 0; y < target.height; ++y) {
    const std::uint8_t* row = source.at(0, NearestSource(y, source.height, target.height));
    std::uint8_t* pixel = target.at(0, y);
    for (int x = 0; x < target.width; ++x, pixel += kBytesPerPixel) {
      std::memcpy(pixel, row + from[x], kBytesPerPixel);
    }
  }
  return stretched;
}

Picture ThumbnailOf(const PixelView& photo) {
  return StretchPicture(photo, ThumbnailSizeFor(photo.width, photo.height));
}

bool MakeThumbnail(PixelBuffer& buffer, PendingEvents& events) {
  const Picture& source = buffer.surfaces.picSource.picture;
  if (!source) return false;
  Picture stretched = ThumbnailOf(source->view());
  if (!stretched) return false;

  PictureSurface& thumb = buffer.surfaces.picThumb;
  thumb.left = (kThumbnailSide - stretched->width()) / 2.0;
  thumb.top = (kThumbnailSide - stretched->height()) / 2.0;
  Display(thumb, std::move(stretched));
  buffer.surfaces.thumbnail_of = source;
  thumb.visible = true;
  DrawShadow(buffer);
  events.Run();
  buffer.OfferPreviewTip();
  return true;
}

}  // namespace tarnwell
