#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/status.h"

namespace tarnwell {

class NamePlan;
struct Form1;

// How far the correction of a photo nobody sits at has come.
enum class PhotoStep { kLoading, kCorrecting, kSaving };

struct CorrectedPhoto {
  Status status;
  PhotoStep step = PhotoStep::kLoading;  // the one that failed, or the last
  std::string saved_as;                  // where the corrected photo is; empty after a failure
  std::vector<std::string> notes;        // what the user is to know about it
};

// What to correct, and under which name it is saved.
struct PhotoTask {
  std::string photo;   // full path
  std::string wanted;  // the name it would have were nothing in its way
  std::string target;  // the free name that the plan gave for it
};

// Opens the photo in the window, corrects it at full size with the settings in force, and saves it
// as task.target, or, where that name was taken meanwhile, under the plan's next one for
// task.wanted. No question comes up, unsaved changes of the window's photo are given up, and
// nothing is learnt. `step` is called before each step. Memory that does not suffice is a failure
// like any other.
CorrectedPhoto CorrectPhoto(Form1& form, const PhotoTask& task, NamePlan& plan,
                            const std::function<void(PhotoStep)>& step);

}  // namespace tarnwell
