#pragma once

#include "imaging/picture_size.h"
#include "imaging/pixel_array.h"
#include "platform/events.h"

namespace tarnwell {

struct PixelBuffer;

// The five turns. W and H are the size before, columns and rows counted from 1.
enum class Turn : int {
  kAnticlockwise = 0,  // H x W: (x, y) goes to (y, W - x + 1)
  kClockwise = 1,      // H x W: (x, y) goes to (H - y + 1, x)
  kHalf = 2,           // W x H: (x, y) goes to (W - x + 1, H - y + 1)
  kUpsideDown = 3,     // W x H: (x, y) goes to (x, H - y + 1)
  kLeftRight = 4,      // W x H: (x, y) goes to (W - x + 1, y)
};
inline constexpr int kTurnCount = 5;

PictureSize SizeAfter(Turn turn, PictureSize before);

// Fills `turned`, of SizeAfter, with `pixels` turned, by up to `threads` threads; its unused
// channel is 0. False when `go_on`, asked on the calling thread, ended it.
bool TurnPixels(const PixelView& pixels, Turn turn, int threads, MutablePixelView turned,
                const GoOn& go_on = ToTheEnd);

// Turns the buffer's working pixels by rotation choice `choice` (0 to 4) and rebuilds its header.
// False, with the buffer as it was, for another choice, when memory does not suffice or `go_on`
// ends it.
bool RotateFinalImage(PixelBuffer& buffer, int choice, int threads, const GoOn& go_on = ToTheEnd);

}  // namespace tarnwell
