#include "console/output_extension.h"

#include <algorithm>

#include "console/setting_options.h"
#include "shell/letter_case.h"

namespace tarnwell {

bool PromisesOtherPicture(const std::string& name) {
  constexpr const char* kOthers[] = {".gif",  ".jfif", ".jpe",  ".jif",  ".png", ".apng", ".tif",
                                     ".tiff", ".webp", ".heic", ".heif", ".hif", ".avif", ".jxl",
                                     ".jp2",  ".dng",  ".psd",  ".tga",  ".ppm"};
  const std::size_t dot = name.find_last_of("./\\");
  if (dot == std::string::npos) return false;
  const std::string extension = FoldCase(name.substr(dot));
  return std::find(std::begin(kOthers), std::end(kOthers), extension) != std::end(kOthers);
}

std::string HowWritten(const std::string& name) {
  return PromisesOtherPicture(name) ? ", written as a bitmap" : "";
}

std::string IsOutputName(const std::string& word) {
  if (!PromisesOtherPicture(word)) return IsNamed(word);
  return "\"" + word + "\": only JPEG files and bitmaps are written; end the name in .jpg or .bmp";
}

}  // namespace tarnwell
