#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/status.h"

namespace tarnwell {

class Files;

// Whether a file of this name is taken for a photo: *.bmp, *.jpeg, *.jpg or *.gif in any letter
// case.
bool IsPhotoName(std::string_view file_name);

// The names of the photos in `folder`, without sub-folders, sorted by name ignoring case. Fails
// with the listing's reason.
Result<std::vector<std::string>> ListPhotos(Files& files, const std::string& folder);

}  // namespace tarnwell
