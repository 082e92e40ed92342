#pragma once

#include <string>

namespace tarnwell {

class cDIBSection;
class Dialogs;
class JpegLibrary;

// Writes `dib` as the JPEG file `path` (UTF-8, replaced if it exists) at `quality` 0 to 100,
// through the library's record and its three calls. True when ijlWrite reports success. When
// ijlInit fails the user is told with its code and nothing is written; a failed write says nothing
// here.
bool SaveJpegFile(const cDIBSection& dib, const std::string& path, int quality,
                  JpegLibrary& library, Dialogs& dialogs, const std::string& title);

}  // namespace tarnwell
