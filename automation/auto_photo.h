#pragma once

#include <functional>
#include <string>
#include <vector>

#include "automation/correct_photo.h"
#include "automation/watched_folder.h"
#include "platform/status.h"

namespace tarnwell {

class Files;

// The last line of the status window while the copy is saved.
inline constexpr char kSavingText[] = "Saving Image and Moving Source...";

// Why the mode pauses where memory ran out.
inline constexpr char kNoMemory[] = "There is not enough memory to go on.";

// What became of a photo of the automated mode.
enum class PhotoFate {
  kDone,          // its corrected copy is saved, the photo has been moved
  kGone,          // somebody else took it meanwhile
  kChanged,       // somebody put another in its place meanwhile, or still writes it
  kWaits,         // cannot be opened for reading yet
  kFailed,        // the reason lies in the photo; it stays where it is
  kFolderFailed,  // a folder takes no more: missing, full, or no permission; the photo stays
  kStopped,       // the correction was cancelled
};

struct AutoPhotoTask {
  PhotoTask correct;
  PhotoVersion version;   // of which a copy is saved, or will be
  std::string saved_as;   // not empty: the copy is there already, only the move remains
  std::string move_to;    // the free name that the plan gave for the source
  std::string move_wish;  // the one it would have were nothing in its way
};

struct AutoPhotoOutcome {
  PhotoFate fate = PhotoFate::kDone;
  Status status;
  std::string saved_as;                 // set when a copy was saved, whatever happened later
  std::vector<std::string> notes = {};  // what the user is to know about the copy
};

// Takes one photo through the automated mode: loads, corrects, saves, and moves the source once its
// copy exists. A photo that is no longer the one that was corrected is not moved; the copy stays.
// No cancel request comes between the save and the move. `show_status` is given the status window's
// texts.
AutoPhotoOutcome ProcessPhoto(Form1& form, const AutoPhotoTask& task, NamePlan& plan,
                              const std::function<void(const std::string&)>& show_status);

// Whether `folder` takes a new file of this many bytes: writes one and deletes it.
Status FolderTakes(Files& files, const std::string& folder, std::size_t bytes);

}  // namespace tarnwell
