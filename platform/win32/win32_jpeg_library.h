#pragma once

#include "imaging/own_jpeg_library.h"

namespace tarnwell {

// The JPEG library over the program's own encoder: the system's gives no say over the quality in
// some versions.
class Win32JpegLibrary : public OwnJpegLibrary {
 public:
  std::string EncodePath(const std::string& path) override;
  Status WritePicture(const std::string& path, const JpegPicture& picture) override;

 protected:
  bool WriteRows(const std::string& path, const BgrRows& rows, int quality,
                 bool half_chrominance) override;
};

}  // namespace tarnwell
