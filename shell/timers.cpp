#include "shell/timers.h"

#include <optional>
#include <string>

#include "modules/presets.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/main_view.h"
#include "shell/main_window.h"
#include "shell/module1.h"
#include "shell/photo_from_outside.h"
#include "shell/photo_queue.h"
#include "shell/preset_files.h"
#include "shell/tell.h"
#include "shell/tips.h"

namespace tarnwell {
namespace {

// A path is never as long as this; what is longer was not written by this program.
constexpr std::uint64_t kMostQueueBytes = 1 << 20;

// Takes the first line of the queue file and deletes the file, so that a photo is opened once.
// Nothing when the file must wait for a later tick (another instance has it in hand), and when what
// it names is not there.
std::optional<std::string> TakeQueuedPath(Form1& form) {
  Files& files = form.platform.files;
  const auto text = files.Read(form.app.queue_file, kMostQueueBytes);
  if (!text.ok() && text.status.failure != Failure::kTooLarge) return std::nullopt;
  if (!files.Delete(form.app.queue_file).ok()) return std::nullopt;
  if (!text.ok()) return std::nullopt;
  std::string path = QueuedPath(*text);
  if (path.empty() || !files.FileExists(path)) return std::nullopt;
  return path;
}

void LoadPresets(Form1& form) {
  for (const std::string& name : ListPresetFiles(form.platform.files, form.app.program_folder)) {
    TellFailure(form,
                PresetLoad(form.app, form.platform, form.modules, form.app.program_folder + name));
  }
}

void OfferStartUpTip(MainWindow& window) {
  if (!window.start_up_tip_due) return;
  window.start_up_tip_due = false;
  const Occupied occupied(window);
  OfferTip(window, kStartUpTip);
}

}  // namespace

void Timer1_Tick(MainWindow& window) {
  if (window.timer1_interval == 0 || IsOccupied(window)) return;
  window.timer1_interval = 0;
  const Occupied occupied(window);
  TellLackOfMemory(window.form, [&] { LoadPresets(window.form); });
  window.view.Refresh();
}

bool Timer2_Tick(MainWindow& window) {
  if (IsOccupied(window) || window.pass_running || window.form.app.closing) return false;
  OfferStartUpTip(window);
  Form1& form = window.form;
  if (!form.platform.files.FileExists(form.app.queue_file)) return false;
  // On Cancel the file stays and the question comes back: a queued photo is never dropped silently.
  return OpenFromOutside(window, [&form] { return TakeQueuedPath(form); });
}

}  // namespace tarnwell
