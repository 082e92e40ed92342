#pragma once

#include <string>
#include <string_view>

#include "platform/status.h"

namespace tarnwell {

class Files;

// Makes `text` the content of the settings file `path`, which the user named, whether it existed or
// not. kExists where a photo, or what is too long for settings, has the name: that is never
// replaced, whatever was answered.
Status ReplaceSettingsFile(Files& files, const std::string& path, std::string_view text);

}  // namespace tarnwell
