#pragma once

#include <array>
#include <optional>

#include "platform/dialogs.h"

namespace tarnwell {

class Files;
struct frmModules;
struct Module1;

struct WhiteBalance {
  std::optional<std::array<double, 3>> offsets;  // red, green, blue
  std::optional<Message> problem;                // why there are none although they were wanted
};

// The white balance of a run, from the reference that the selected white balance mode names: the
// mode folder's file, the colour picked on the photo, or a custom file. Nothing when the module is
// closed or at strength 0 (then nothing is read), and a problem when the reference cannot be read.
WhiteBalance WhiteBalanceOfRun(const Module1& app, Files& files, const frmModules& panel);

}  // namespace tarnwell
