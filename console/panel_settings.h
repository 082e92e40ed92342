#pragma once

#include "console/options.h"
#include "platform/status.h"

namespace tarnwell {

class Files;
struct Module1;
struct Platform;
struct frmModules;

// Points the program at its folder: the one that was named, or the user's data folder. Fails when
// there is neither.
Status UseProgramFolder(const std::string& named, Files& files, Module1& app);

// Brings the settings of a command into force, in a fixed order whatever the order of the words:
// camera and mode (made when missing), the preset, the white balance reference (whose file also
// sets its strength), then the single settings. Fails when a file that they name cannot be read
// whole, or a camera or mode cannot be made; the panel is then not to be used.
Status ApplySettings(const Settings& settings, Platform& platform, Module1& app, frmModules& panel);

}  // namespace tarnwell
