#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "engine/histogram.h"
#include "engine/learning_data.h"
#include "engine/settings_of_run.h"
#include "imaging/output_names.h"
#include "imaging/photo_metadata.h"
#include "imaging/pixel_buffer.h"
#include "shell/tip.h"
#include "shell/window_memory.h"

namespace tarnwell {

struct frmModules;
struct frmProgress;
struct Module1;
struct Platform;

// The main window as data: what the flows (FileOpen, AdjustPhoto, FileSave, ...) share about the
// photo in it. Each flow lives in a file of its own; a view draws this state.
struct Form1 {
  Module1& app;
  Platform& platform;
  frmModules& modules;
  frmProgress& progress;

  PixelBuffer buffer = {};
  SharedMetadata metadata = {};      // of the photo in picOriginal
  bool metadata_notes_told = false;  // the user knows what of it saved files do not keep
  OutputNames names = {};
  LearningData learning = {};                        // of the current camera and mode
  LearntProposal learnt = {};                        // what the last run took over from that
  std::optional<SettingsOfRun> corrected_with = {};  // by the last run
  PictureHistogram histogram = {};                   // of the picture that was measured last
  // The photo in picOriginal has been measured since it came there; a run measures it first
  // otherwise.
  bool correction_ready = false;
  // A correction run is under way. It lets events in, and whatever would change the photo or its
  // surfaces meanwhile must wait or refuse.
  bool correcting = false;
  std::string white_balance_problem = {};  // of the last run, under the mode it was run with
  // The last run was cancelled; what is shown is from the one before.
  bool correction_cancelled = false;

  std::string lblTitleCaption = " - Unnamed Photo";
  std::string caption = {};             // of the window
  std::vector<std::string> File1 = {};  // names of the photos in the current photo's folder

  WindowMemory memory = {};

  // The photo as it was opened will be looked at again after a correction: shown, restored,
  // corrected anew. Otherwise a correction works in its memory, and leaves no photo when it fails.
  bool keeps_original = true;

  // A photo that has no JPEG quality of its own is named where that is to be saved with. At the
  // window the switch stands beside the slider that is in force then.
  bool tells_other_quality = false;

  int threads = 1;  // worker threads a pass may use, the calling one included

  // Takes what the user is to know about a photo, while nobody sits at the window; without it the
  // user is told at once.
  std::function<void(const std::string& note)> collect_note = {};
  // Offers a tip; set by the host.
  std::function<void(Tip)> ShowTips = [](Tip) {};
  // Shows the automated mode's notification panel with a text, for this many milliseconds.
  std::function<void(const std::string& text, int milliseconds)> ShowNotification =
      [](const std::string&, int) {};
};

}  // namespace tarnwell
