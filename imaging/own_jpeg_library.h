#pragma once

#include <string>

#include "imaging/jpeg_encoder.h"
#include "imaging/jpeg_library.h"

namespace tarnwell {

// The program's own encoders behind the calls of the external JPEG library. They read the same
// fields of the record, and refuse a record that contradicts itself or asks for what they do not do
// before they touch the file. `JPGFile` is UTF-8 in the program's spelling. Keeps no state.
class OwnJpegLibrary : public JpegLibrary {
 public:
  // The codes that the calls return beside 0.
  static constexpr int kBadRecord = -1;  // a field that cannot be, or another mode
  static constexpr int kNoMemory = -2;
  static constexpr int kFileNotWritten = -3;

  int ijlInit(JPEG_CORE_PROPERTIES* record) override;
  int ijlWrite(JPEG_CORE_PROPERTIES* record, int mode) override;
  int ijlFree(JPEG_CORE_PROPERTIES* record) override;
  bool TakesPictures() const override { return true; }

 protected:
  // Encodes `rows` into the file `path`, over what is there. False, with no file left, when it
  // could not be written. May throw std::bad_alloc.
  virtual bool WriteRows(const std::string& path, const BgrRows& rows, int quality,
                         bool half_chrominance) = 0;
};

}  // namespace tarnwell
