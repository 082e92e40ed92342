#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "imaging/pixel_array.h"
#include "platform/events.h"
#include "platform/status.h"

namespace tarnwell {

// The core properties record of the external JPEG library: 21 fields of 32 bits, then the
// library's internal block. Addresses take a pointer's width, so the size of 20084 bytes holds in a
// 32-bit build only, and only there can the external library be bound.
struct JPEG_CORE_PROPERTIES {
  std::int32_t UseJPEGPROPERTIES;
  const std::uint8_t* DIBBytes;
  std::int32_t DIBWidth;
  std::int32_t DIBHeight;  // negative: rows are stored bottom-up
  std::int32_t DIBPadBytes;
  std::int32_t DIBChannels;
  std::int32_t DIBColor;
  std::int32_t DIBSubsampling;
  const char* JPGFile;  // zero-terminated
  const std::uint8_t* JPGBytes;
  std::int32_t JPGSizeBytes;
  std::int32_t JPGWidth;
  std::int32_t JPGHeight;
  std::int32_t JPGChannels;
  std::int32_t JPGColor;
  std::int32_t JPGSubsampling;
  std::int32_t JPGThumbWidth;
  std::int32_t JPGThumbHeight;
  std::int32_t cconversion_reqd;
  std::int32_t upsampling_reqd;
  std::int32_t jquality;  // 0 to 100
  std::uint8_t jprops[20000];
};
static_assert(sizeof(void*) != 4 || sizeof(JPEG_CORE_PROPERTIES) == 20084);

// Whether photos of this quality have their chrominance at half the resolution: at the qualities
// that are asked for where size matters. Above, red edges would give the coarse chrominance away.
inline constexpr bool HalvesChrominance(int quality) { return quality < 90; }

// The mode of ijlWrite that writes a whole picture to the file named in JPGFile.
inline constexpr int kWriteWholeFile = 8;

// A picture to be written as a JPEG file, as the program's own encoders take it: without a section
// of 24 bits, which for a photo is tens of megabytes that would be filled to be read once.
struct JpegPicture {
  PixelView pixels;
  int quality = 0;                 // 0 to 100
  bool half_chrominance = true;    // chrominance of half resolution in both directions, or of full
  int threads = 1;                 // that may be used; the file is the same for any number
  std::string_view segments = {};  // that come behind the header: AddSegment
  GoOn go_on = ToTheEnd;           // asked every few megapixels at least
};

// The three calls of the JPEG library that the program makes. 0 means success, anything else is an
// error code. The external library answers them where it can be bound; everywhere else the
// platform's own encoder does.
class JpegLibrary {
 public:
  virtual ~JpegLibrary() = default;

  virtual int ijlInit(JPEG_CORE_PROPERTIES* record) = 0;
  virtual int ijlWrite(JPEG_CORE_PROPERTIES* record, int mode) = 0;
  virtual int ijlFree(JPEG_CORE_PROPERTIES* record) = 0;

  // A UTF-8 path in the spelling that JPGFile takes: the system's 8-bit code page for the external
  // library, UTF-8 for the program's own encoders.
  virtual std::string EncodePath(const std::string& path) = 0;

  // Whether WritePicture may be called: on the program's own encoders.
  virtual bool TakesPictures() const { return false; }

  // Writes `picture` to the new file `path` (UTF-8, in the program's spelling); kCancelled when
  // picture.go_on ends it. On failure no file is left.
  virtual Status WritePicture(const std::string& path, const JpegPicture& picture);
};

inline Status JpegLibrary::WritePicture(const std::string& path, const JpegPicture&) {
  return Status::Error(Failure::kUnsupported, path + ": the JPEG library takes no pictures");
}

}  // namespace tarnwell
