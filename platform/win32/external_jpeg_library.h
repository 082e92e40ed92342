#pragma once

#include <memory>
#include <string>

#include "imaging/jpeg_library.h"

namespace tarnwell {

// The name of the external JPEG library's file.
inline constexpr const wchar_t* kExternalJpegLibrary = L"ijl10.dll";

// Binds the external JPEG library in `file`: a full path, or a name that is looked for beside the
// program and in the system's folder, nowhere else. Null unless all three calls are found. Its
// EncodePath converts to the system's 8-bit code page.
std::unique_ptr<JpegLibrary> BindExternalJpegLibrary(const std::wstring& file);

// The library that the program writes JPEG files with: the external one where the record has the
// layout that it knows (in a 32-bit program) and `file` can be bound, otherwise the program's
// own encoder.
std::unique_ptr<JpegLibrary> ChooseJpegLibrary(const std::wstring& file);

}  // namespace tarnwell
