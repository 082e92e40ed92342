#pragma once

#include <memory>

#include "imaging/jpeg_library.h"
#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/picture_codec.h"
#include "platform/system.h"

namespace tarnwell {

// A clipboard for programs that have none.
class NoClipboard : public Clipboard {
 public:
  bool SetPicture(const PixelView&) override { return false; }
  Picture GetPicture() override { return nullptr; }
};

// The system's part of what a command needs; the console's own part comes with the command.
struct ConsoleSystem {
  std::unique_ptr<Files> files = MakeSystemFiles();
  std::unique_ptr<PictureCodec> codec = MakeSystemPictureCodec();
  std::unique_ptr<JpegLibrary> jpeg = MakeSystemJpegLibrary();
  std::unique_ptr<Clock> clock = MakeSystemClock();
  NoClipboard clipboard;
};

}  // namespace tarnwell
