#pragma once

#include <array>
#include <string>
#include <string_view>

#include "modules/frm_modules.h"
#include "platform/status.h"

namespace tarnwell {

class Files;
class PendingEvents;
struct Module1;
struct Platform;

// A preset is the state of the module panel in one ".twp" file, so that a look can be kept and used
// again.
inline constexpr const char* kPresetFilter = "Presets File (*.twp)|*.twp";
inline constexpr const char* kPresetExtension = ".twp";

// Asks where to save, then writes the panel there. kCancelled, without a message, when the user
// backs out.
Status PresetSave(const Module1& app, Platform& platform, const frmModules& panel);

// Writes the panel to `path`, replacing what is there. Fails, writing nothing, when the custom
// white balance file in use exists but does not give its four lines.
Status WritePreset(const Module1& app, Files& files, const frmModules& panel,
                   const std::string& path);

// The text of a preset. `first_four_lines` are those of the custom white balance file.
std::string PresetText(const frmModules& panel, const std::array<std::string, 4>& first_four_lines,
                       const std::string& title);

// Whether presets carry the check option. The first three are no part of one.
inline bool PresetKeeps(int check) { return check >= kUseLearntCorrections; }

// Puts the preset at `path` in force; asks for one when `path` is empty (kCancelled, without a
// message, when the user backs out). Value texts hold as they stand, whatever their knob says.
// Check options that presets do not keep stay as they are. With the stored white balance mode 2 the
// preset becomes the custom white balance file and is read as such; with 0 or 1 the mode is
// switched and no file is read, so that slider 2 keeps the preset's text.
//
// A damaged file fails with the first line that cannot be used; what stood before it is in force.
Status PresetLoad(Module1& app, Platform& platform, frmModules& panel, const std::string& path);

// The part of PresetLoad between text and panel: everything but reading the white balance. Gives
// the stored white balance mode; mode 2 is left to the caller to select. `path` becomes the custom
// file then, `name` is the file in messages.
Result<WhiteBalanceMode> ApplyPresetText(frmModules& panel, std::string_view text,
                                         const std::string& path, const std::string& name,
                                         PendingEvents& events);

}  // namespace tarnwell
