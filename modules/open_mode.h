#pragma once

#include <array>

namespace tarnwell {

struct frmModules;
struct Module1;
struct Platform;

// What opening a photo does to the module panel; the numbers are stored in the settings.
enum OpenMode : int {
  kResetAndMinimize = 0,
  kResetOnly = 1,
  kLeaveAll = 2,
};

// Captions of the dialog's options, by open mode; "&" marks the access key.
inline constexpr std::array<const char*, 3> kOpenModeCaptions = {
    "Change all settings to default + &minimize modules (except Smart).",
    "C&hange all settings to default, but leave modules open.",
    "&Leave all settings and modules as they are.",
};

// The dialog that chooses the open mode. It opens on the stored one; only OK stores the choice.
struct frmOpenMode {
  int selected;

  explicit frmOpenMode(const Module1& app);
  void OkClicked(Module1& app) const;
};

// Brings the panel into the state in which a newly opened photo finds it, without a question.
// Camera and mode, JPEG quality, the saving of photos and the colour rotation keep their settings
// in every open mode.
void ResetAll(Module1& app, Platform& platform, frmModules& panel);

}  // namespace tarnwell
