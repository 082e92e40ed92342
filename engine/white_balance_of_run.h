#pragma once

#include <array>
#include <optional>
#include <string>

#include "engine/settings_of_run.h"
#include "platform/dialogs.h"

namespace tarnwell {

class Files;

struct WhiteBalance {
  std::optional<std::array<double, 3>> offsets;  // red, green, blue
  std::optional<Message> problem;                // why there are none although they were wanted
};

// The white balance of a run, from the reference that `wanted` names: the mode's file, the colour
// picked on the photo, or a custom file. Nothing where none is wanted, and a problem, under
// `title`, when the reference cannot be read.
WhiteBalance WhiteBalanceOfRun(const std::string& title, Files& files,
                               const std::optional<WantedWhite>& wanted);

}  // namespace tarnwell
