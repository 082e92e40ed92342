#include "engine/white_balance_of_run.h"

#include "engine/run_parameters.h"
#include "modules/white_balance_file.h"
#include "platform/files.h"

namespace tarnwell {
namespace {

constexpr char kNoneSaved[] =
    " could not find any saved white balance setting for this camera and mode.";

WhiteBalance Problem(const std::string& title, const std::string& text, Icon icon) {
  return {std::nullopt, Message{title, text, icon}};
}

}  // namespace

WhiteBalance WhiteBalanceOfRun(const std::string& title, Files& files,
                               const std::optional<WantedWhite>& wanted) {
  if (!wanted) return {};
  Rgb reference = wanted->picked;
  if (wanted->mode != WhiteBalanceMode::kPickedPixel) {
    const bool by_mode = wanted->mode == WhiteBalanceMode::kModeDefault;
    if (by_mode && !files.FileExists(wanted->file)) {
      return Problem(title, title + kNoneSaved, Icon::kInformation);
    }
    const auto setting = ReadWhiteBalanceFile(files, wanted->file);
    if (!setting.ok()) return Problem(title, setting.status.message, Icon::kExclamation);
    reference = setting->colour;
  }
  return {WhiteBalanceOffsets(reference, wanted->strength), std::nullopt};
}

}  // namespace tarnwell
