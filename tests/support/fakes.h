#pragma once

#include <cstdint>
#include <functional>

#include "imaging/pixel_array.h"
#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/events.h"

namespace tarnwell {

// A clipboard in memory.
class FakeClipboard : public Clipboard {
 public:
  Picture content;

  bool SetPicture(const PixelView& picture) override {
    content = TryCopyPixels(picture);
    return content != nullptr;
  }
  Picture GetPicture() override { return content; }
};

// A clock that stands at `now` and goes on by `step` with every look at it.
class FakeClock : public Clock {
 public:
  std::int64_t now = 1'000'000'000;
  std::int64_t step = 0;

  std::int64_t Nanos() override {
    const std::int64_t seen = now;
    now += step;
    return seen;
  }
};

// Counts how often pending events were let in. `on_run` plays the user who clicks meanwhile; it is
// told which call this is, the first being 1.
class RecordingEvents : public PendingEvents {
 public:
  int runs = 0;
  std::function<void(int run)> on_run;

  void Run() override {
    ++runs;
    if (on_run) on_run(runs);
  }
};

}  // namespace tarnwell
