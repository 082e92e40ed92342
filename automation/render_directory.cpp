#include "automation/render_directory.h"

#include <algorithm>

#include "automation/adjust_directory.h"
#include "engine/pass_progress.h"
#include "imaging/output_names.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/frm_progress.h"
#include "shell/module1.h"
#include "shell/tell.h"
#include "shell/time_left.h"

namespace tarnwell {
namespace {

constexpr char kQuestionTitle[] = "Render Directory...";
constexpr char kQuestion[] =
    "This will adjust all photos in the same directory as the current photo,\r"
    "using the settings which are being applied to the current photo.\r"
    "\r"
    "Are you sure you wish to continue?";

// A message box grows with its lines; more would not fit on a small screen.
constexpr std::size_t kMostLinesShown = 10;

// A list under its title; nothing for an empty one.
std::string Listed(const char* title, const std::vector<std::string>& lines) {
  if (lines.empty()) return {};
  std::string text = std::string("\r\r") + title;
  const std::size_t shown = std::min(lines.size(), kMostLinesShown);
  for (std::size_t i = 0; i < shown; ++i) text += "\r" + lines[i];
  if (const std::size_t more = lines.size() - shown; more > 0) {
    text += "\rand " + std::to_string(more) + " more";
  }
  return text;
}

std::string Summary(const DirectoryOutcome& outcome, const std::string& output_folder) {
  std::string text = SavedText(outcome.corrected, outcome.total, output_folder);
  if (outcome.cancelled) text += "\rYou cancelled before the rest.";
  text += Listed("These photos were left out:", outcome.failures);
  text += Listed("Not everything of these photos could be kept:", outcome.notes);
  return text;
}

Result<DirectoryOutcome> RunDirectory(Form1& form, const DirectoryView& view) {
  form.progress.caption = "Progress";
  const ProgressWindow window(form.progress, kCollecting);
  const std::int64_t started = form.platform.clock.Nanos();
  auto outcome = AdjustDirectory(
      form, {.begins =
                 [&](int number, int total, const std::string& name) {
                   const std::int64_t elapsed = form.platform.clock.Nanos() - started;
                   form.progress.caption = ProgressCaption(name);
                   form.progress.lblFolder =
                       "Photo " + ShownPosition(number, total, number - 1, elapsed);
                   ShowPercentage(form.progress, 0);
                   ShowStage(form.progress, kCollecting);
                   view.show_status("Photo " + std::to_string(number) + " of " +
                                    std::to_string(total) + ": " + name);
                 },
             .shown = view.show_photo});
  form.progress.lblFolder.clear();
  view.show_status("");
  return outcome;
}

}  // namespace

void Command1_Click(Form1& form, const DirectoryView& view) {
  Dialogs& dialogs = form.platform.dialogs;
  if (form.app.current_file.empty()) {
    dialogs.Tell({form.app.title, "Open a photo of the directory first.", Icon::kInformation});
    return;
  }
  if (dialogs.Ask({kQuestionTitle, kQuestion, Icon::kQuestion}) != Answer::kYes) return;

  const std::string folder = SplitPhotoPath(form.app.current_file).folder;
  const auto outcome = RunDirectory(form, view);
  if (!outcome.ok()) return TellFailure(form, outcome.status);
  const bool all_done = outcome->failures.empty();
  dialogs.Tell({form.app.title,
                Summary(*outcome, form.platform.files.Display(folder + kOutputSubfolder)),
                all_done ? Icon::kInformation : Icon::kExclamation});
}

}  // namespace tarnwell
