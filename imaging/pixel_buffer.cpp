#include "imaging/pixel_buffer.h"

#include <utility>

#include "imaging/thumbnail.h"

namespace tarnwell {
namespace {

bool IsEmpty(const Picture& picture) { return !picture || picture->view().empty(); }

// The surface that becomes the working image.
const PictureSurface& SurfaceOf(const PhotoSurfaces& surfaces, PixelSource source) {
  switch (source) {
    case PixelSource::kThumbnail:
      return surfaces.picThumb;
    case PixelSource::kOriginal:
      return surfaces.picOriginal;
    case PixelSource::kSourceAsItStands:
      break;
  }
  return surfaces.picSource;
}

void DescribeTransfer(PixelBuffer& buffer, int width, int height) {
  buffer.header = HeaderFor(width, height);
  buffer.bytes_per_row = BytesPerRow(width);
  buffer.row_padding = RowPadding(width);
}

}  // namespace

void Display(PictureSurface& surface, Picture picture) {
  surface.width = picture ? picture->width() : 0;
  surface.height = picture ? picture->height() : 0;
  surface.image = picture;
  surface.picture = std::move(picture);
}

int BytesPerRow(int width) { return (width * 32 + 31) / 32 * 4; }

int RowPadding(int width) { return BytesPerRow(width) - (width * 32 + 7) / 8; }

BitmapHeader HeaderFor(int width, int height) {
  BitmapHeader header;
  header.width = width;
  header.height = -height;
  // Unsigned: the largest picture has more bytes than a signed 32-bit number counts.
  header.image_bytes =
      static_cast<std::uint32_t>(height) * static_cast<std::uint32_t>(BytesPerRow(width));
  return header;
}

void ShowOriginalAsSource(PhotoSurfaces& surfaces) {
  Display(surfaces.picSource, surfaces.picOriginal.picture);
  surfaces.picSource.turned = surfaces.picOriginal.turned;
}

bool ReadSourcePixels(PixelBuffer& buffer, PixelSource source) {
  PhotoSurfaces& surfaces = buffer.surfaces;
  const Picture image = SurfaceOf(surfaces, source).image;
  if (IsEmpty(image)) return false;

  if (source == PixelSource::kThumbnail) surfaces.picThumb.picture = image;
  if (source == PixelSource::kOriginal) surfaces.picOriginal.picture = image;
  if (source != PixelSource::kSourceAsItStands) {
    Display(surfaces.picSource, image);
    surfaces.picSource.turned = surfaces.picOriginal.turned;
  }
  buffer.width = image->width();
  buffer.height = image->height();
  DescribeTransfer(buffer, buffer.width, buffer.height);
  buffer.read = image;
  buffer.working = nullptr;
  return true;
}

PixelView WorkingPixels(const PixelBuffer& buffer) {
  if (buffer.working) return buffer.working->view();
  return buffer.read ? buffer.read->view() : PixelView();
}

bool MakeNewWorkingPixels(PixelBuffer& buffer) {
  buffer.working = TryMakePixels(buffer.width, buffer.height);
  return buffer.working != nullptr;
}

bool MakeWorkingPixels(PixelBuffer& buffer) {
  buffer.working = buffer.read.use_count() == 1 ? std::const_pointer_cast<PixelArray>(buffer.read)
                                                : TryMakePixels(buffer.width, buffer.height);
  return buffer.working != nullptr;
}

void ReadGraphicPixels(PixelBuffer& buffer) {
  const Picture& image = buffer.surfaces.picGraphic.image;
  if (IsEmpty(image)) return;
  DescribeTransfer(buffer, image->width(), image->height());
  buffer.graphic = image;
}

void WriteSourcePixels(PixelBuffer& buffer, PendingEvents& events) {
  Picture pixels = std::exchange(buffer.working, nullptr);
  const Picture read = std::exchange(buffer.read, nullptr);
  if (!pixels) pixels = read;
  if (!pixels) return;
  PictureSurface& target = buffer.surfaces.picSource;
  DescribeTransfer(buffer, buffer.width, buffer.height);
  target.left = 0;
  target.top = 0;
  Display(target, std::move(pixels));
  MakeThumbnail(buffer, events);
}

void ReplaceWorkingPixels(PixelBuffer& buffer, std::shared_ptr<PixelArray> pixels) {
  buffer.width = pixels->width();
  buffer.height = pixels->height();
  DescribeTransfer(buffer, buffer.width, buffer.height);
  buffer.working = std::move(pixels);
}

}  // namespace tarnwell
