#pragma once

#include <array>
#include <optional>

namespace tarnwell {

struct frmModules;
struct Module1;
struct Platform;

// The white balance offsets (red, green, blue) of a run, from the reference that the selected white
// balance mode names: the mode folder's file, the colour picked on the photo, or a custom file.
// Nothing when the module is closed, at strength 0 (then nothing is read), or when the reference
// cannot be read; the user is told why.
std::optional<std::array<double, 3>> WhiteBalanceOfRun(const Module1& app, Platform& platform,
                                                       const frmModules& panel);

}  // namespace tarnwell
