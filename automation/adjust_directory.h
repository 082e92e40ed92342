#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "platform/status.h"

namespace tarnwell {

struct Form1;

// The sub-folder that corrected photos of a folder go to; spelled with a lower-case "out" on
// purpose.
inline constexpr char kOutputSubfolder[] = "TWout\\";

// What became of a folder's photos.
struct DirectoryOutcome {
  int total = 0;                      // photos in the folder
  int corrected = 0;                  // saved in the output folder
  std::vector<std::string> failures;  // one line for each photo that was not, naming it and why
  std::vector<std::string> notes;     // what of saved photos was left out, a line for each photo
  bool cancelled = false;             // the rest was not begun
};

// "3 of 5 photos were corrected and saved in ..."; `output_folder` as the user is shown it.
std::string SavedText(std::size_t corrected, std::size_t total, const std::string& output_folder);

// Who follows the run.
struct DirectoryFollower {
  // Before each photo: its number from 1, how many there are, its name.
  std::function<void(int number, int total, const std::string& name)> begins =
      [](int, int, const std::string&) {};
  // The photo is in the window, and its correction begins.
  std::function<void()> shown = [] {};
};

// Corrects every photo in the folder of form.app.current_file at full size with the settings in
// force and saves each as a JPEG file in the folder's "TWout\", never replacing one. No question
// comes up, nothing is learnt, and a photo that fails is skipped. Afterwards the photo that was
// open is shown again, as it was. Fails when the folder cannot be listed or the output folder not
// be made.
Result<DirectoryOutcome> AdjustDirectory(Form1& form, const DirectoryFollower& follower);

}  // namespace tarnwell
