#pragma once

#include <string>
#include <string_view>

#include "platform/status.h"

namespace tarnwell {

// Why a file with these bytes is no BMP, GIF or JPEG picture: because it is a picture of another
// kind, which is named, or none that is known. `name` is the file's.
Status NoPhoto(std::string_view bytes, const std::string& name);

}  // namespace tarnwell
