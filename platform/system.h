#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace tarnwell {

class Clock;
class Files;
class JpegLibrary;
class PictureCodec;

// This system's implementations of the seams; the build links those of platform/posix or
// platform/win32.
std::unique_ptr<Files> MakeSystemFiles();
std::unique_ptr<PictureCodec> MakeSystemPictureCodec();
std::unique_ptr<JpegLibrary> MakeSystemJpegLibrary();
std::unique_ptr<Clock> MakeSystemClock();

// The folder for this user's program data, spelled with backslashes and ending in one. It need not
// exist. Empty when the system names none.
std::string SystemDataFolder();

// How many processors the program may use, at least 1.
int SystemProcessorCount();

// How many bytes of memory this machine has; 0 when the system does not tell.
std::uint64_t SystemMemoryBytes();

// How many columns the terminal of standard error has at the moment; 80 when the system does not
// tell.
int SystemTerminalColumns();
inline constexpr int kUsualTerminalColumns = 80;

// Deletes the temporary files in `folder` that programs of this machine left when they were ended
// in the middle of writing. Files does so where it writes for the first time; this is for folders
// that are to be tidy before anything is written. Returns how many went.
int DeleteStrayTemporaries(const std::string& folder);

}  // namespace tarnwell
