#include "engine/final_rotation.h"

#include "imaging/pixel_buffer.h"

namespace tarnwell {
namespace {

struct Position {
  int x;
  int y;
};

// Where the pixel at (x, y), counted from 0, of a width x height picture goes.
Position Destination(Turn turn, int x, int y, int width, int height) {
  switch (turn) {
    case Turn::kAnticlockwise:
      return {y, width - 1 - x};
    case Turn::kClockwise:
      return {height - 1 - y, x};
    case Turn::kHalf:
      return {width - 1 - x, height - 1 - y};
    case Turn::kUpsideDown:
      return {x, height - 1 - y};
    case Turn::kLeftRight:
      return {width - 1 - x, y};
  }
  return {x, y};
}

}  // namespace

std::shared_ptr<PixelArray> TurnPixels(const PixelView& pixels, Turn turn) {
  const bool sides_swap = turn == Turn::kAnticlockwise || turn == Turn::kClockwise;
  auto turned = sides_swap ? TryMakePixels(pixels.height, pixels.width)
                           : TryMakePixels(pixels.width, pixels.height);
  if (!turned) return nullptr;
  const MutablePixelView target = turned->mutable_view();
  for (int y = 0; y < pixels.height; ++y) {
    const std::uint8_t* source = pixels.at(0, y);
    for (int x = 0; x < pixels.width; ++x, source += kBytesPerPixel) {
      const Position to = Destination(turn, x, y, pixels.width, pixels.height);
      std::uint8_t* destination = target.at(to.x, to.y);
      destination[kBlue] = source[kBlue];
      destination[kGreen] = source[kGreen];
      destination[kRed] = source[kRed];
    }
  }
  return turned;
}

bool RotateFinalImage(PixelBuffer& buffer, int choice) {
  if (choice < 0 || choice >= kTurnCount || !buffer.working) return false;
  auto turned = TurnPixels(buffer.working->view(), static_cast<Turn>(choice));
  if (!turned) return false;
  ReplaceWorkingPixels(buffer, std::move(turned));
  return true;
}

}  // namespace tarnwell
