#pragma once

#include <string>

#include "imaging/jpeg_library.h"

namespace tarnwell {

// The three calls of the JPEG library, answered by the program's own encoder: the system's own
// gives no say over the quality in some versions.
class Win32JpegLibrary : public JpegLibrary {
 public:
  // The codes that the calls return beside 0.
  static constexpr int kBadRecord = -1;  // a field that cannot be, or another mode
  static constexpr int kNoMemory = -2;
  static constexpr int kFileNotWritten = -3;

  int ijlInit(JPEG_CORE_PROPERTIES* record) override;
  int ijlWrite(JPEG_CORE_PROPERTIES* record, int mode) override;
  int ijlFree(JPEG_CORE_PROPERTIES* record) override;
  std::string EncodePath(const std::string& path) override;
  bool TakesPictures() const override { return true; }
  Status WritePicture(const std::string& path, const JpegPicture& picture) override;
};

}  // namespace tarnwell
