#pragma once

#include "imaging/jpeg_library.h"

namespace tarnwell {

// The program's own encoder behind the calls of the external JPEG library. It reads the same fields
// of the record, and refuses a record that contradicts itself or asks for what it does not do
// before it touches the file. `JPGFile` is UTF-8 in the program's spelling. Keeps no state.
class PosixJpegLibrary : public JpegLibrary {
 public:
  int ijlInit(JPEG_CORE_PROPERTIES* record) override;
  int ijlWrite(JPEG_CORE_PROPERTIES* record, int mode) override;
  int ijlFree(JPEG_CORE_PROPERTIES* record) override;
  std::string EncodePath(const std::string& path) override;
  bool TakesPictures() const override { return true; }
  Status WritePicture(const std::string& path, const JpegPicture& picture) override;
};

}  // namespace tarnwell
