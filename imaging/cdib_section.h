#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "imaging/pixel_array.h"

namespace tarnwell {

class Clipboard;
class Clock;
class Dialogs;

// A 24-bit bitmap section, what the JPEG writer encodes from. Rows are stored bottom-up and padded
// to 4 bytes:
//
//   B G R  B G R ... pad   <- bottom row of the picture
//   ...
//   B G R  B G R ... pad   <- top row
class cDIBSection {
 public:
  // Makes a black section. False, and the object stays empty, when a side is outside 1..32767 or
  // memory does not suffice. What the object held before is released first.
  bool Create(int width, int height);

  // Creates a section of the picture's size and copies the picture into it. Empty on failure.
  void CreateFromPicture(const PixelView& picture);

  // (width x 3 + 3) with the two low bits cleared.
  int BytesPerScanLine() const;
  int Width() const { return width_; }
  int Height() const { return height_; }

  // The bits, BytesPerScanLine() x Height() bytes; null when empty.
  std::uint8_t* DIBSectionBitsPtr() { return bits_.empty() ? nullptr : bits_.data(); }
  const std::uint8_t* DIBSectionBitsPtr() const { return bits_.empty() ? nullptr : bits_.data(); }

  // Copies the part of `source` from column x, row y on, width x height pixels, to the section's
  // top-left corner. A negative width or height means the section's own. What lies outside either
  // picture is left out.
  void LoadPictureBlt(const PixelView& source, int x = 0, int y = 0, int width = -1,
                      int height = -1);

  // Copies the section's pixels from column source_x, row source_y on to `target` at x, y. A
  // negative width or height means the section's own. What lies outside either picture is left
  // out; the target's unused channel stays as it is.
  void PaintPicture(MutablePixelView target, int x = 0, int y = 0, int width = -1, int height = -1,
                    int source_x = 0, int source_y = 0) const;

  // Fills the picture with noise: the same value in all channels when `grey`, otherwise blue 0 and
  // green and red each a value of their own. Seeded from the clock.
  void RandomiseBits(bool grey, Clock& clock);

  // Releases the section; sizes and address become 0.
  void ClearUp();

  // A new section of the new size (height first): a copy when the size is the same, otherwise
  // resampled bilinearly with scales (size - 1) / new size. Null when it could not be created, or
  // when this section is empty.
  std::unique_ptr<cDIBSection> Resample(int new_height, int new_width) const;

  // Places the section on the clipboard as a bitmap. True only if the clipboard took it. With
  // `as_dib` it says that it cannot, under `title`, and returns false.
  bool CopyToClipboard(bool as_dib, Clipboard& clipboard, Dialogs& dialogs,
                       const std::string& title) const;

 private:
  // First byte of the pixel at column x, row y counted in the section's own order (0 = bottom).
  const std::uint8_t* StoredPixel(int x, int stored_row) const;
  std::uint8_t* StoredPixel(int x, int stored_row);

  int width_ = 0;
  int height_ = 0;
  std::vector<std::uint8_t> bits_;
};

}  // namespace tarnwell
