#pragma once

#include "imaging/pixel_array.h"
#include "platform/clipboard.h"

namespace tarnwell {

// A clipboard in memory. With `refuses` it takes nothing and keeps what it holds.
class FakeClipboard : public Clipboard {
 public:
  Picture content;
  bool refuses = false;
  int placed = 0;  // pictures taken so far

  bool SetPicture(const PixelView& picture) override {
    if (refuses) return false;
    content = TryCopyPixels(picture);
    ++placed;
    return content != nullptr;
  }
  Picture GetPicture() override { return content; }
};

}  // namespace tarnwell
