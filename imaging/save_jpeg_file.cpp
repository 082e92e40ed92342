#include "imaging/save_jpeg_file.h"

#include <cstring>

#include "imaging/cdib_section.h"
#include "imaging/jpeg_library.h"
#include "platform/dialogs.h"

namespace tarnwell {

bool SaveJpegFile(const cDIBSection& dib, const std::string& path, int quality,
                  JpegLibrary& library, Dialogs& dialogs, const std::string& title) {
  if (!dib.DIBSectionBitsPtr()) return false;
  JPEG_CORE_PROPERTIES record;
  std::memset(&record, 0, sizeof record);
  if (const int code = library.ijlInit(&record); code != 0) {
    dialogs.Tell({title, "Failed to initialise the IJL library: " + std::to_string(code),
                  Icon::kExclamation});
    return false;
  }
  record.DIBBytes = dib.DIBSectionBitsPtr();
  record.DIBWidth = dib.Width();
  record.DIBHeight = -dib.Height();
  record.DIBPadBytes = dib.BytesPerScanLine() - 3 * dib.Width();
  // The record only points at the path: the text must outlive ijlWrite.
  const std::string encoded_path = library.EncodePath(path);
  record.JPGFile = encoded_path.c_str();
  record.JPGWidth = dib.Width();
  record.JPGHeight = dib.Height();
  record.jquality = quality;
  const bool written = library.ijlWrite(&record, kWriteWholeFile) == 0;
  library.ijlFree(&record);
  return written;
}

}  // namespace tarnwell
