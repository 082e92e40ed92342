#pragma once

#include <optional>
#include <string>

#include "engine/run_parameters.h"
#include "modules/frm_modules.h"

namespace tarnwell {

struct Module1;

// Where a white balance comes from, and how much of it.
struct WantedWhite {
  WhiteBalanceMode mode = {};
  Rgb picked;        // of kPickedPixel
  std::string file;  // of the others
  int strength = 0;  // percent, above 0

  friend bool operator==(const WantedWhite&, const WantedWhite&) = default;
};

// What of the panel and the menus a correction depends on: the same ones make the same of a photo.
struct SettingsOfRun {
  RunParameters parameters;  // of a full run
  bool analyzes_full_source = false;
  std::optional<WantedWhite> white;  // nothing when the module is closed or at strength 0

  friend bool operator==(const SettingsOfRun&, const SettingsOfRun&) = default;
};

// The settings that are in force.
SettingsOfRun CurrentSettings(const Module1& app, const frmModules& panel);

}  // namespace tarnwell
