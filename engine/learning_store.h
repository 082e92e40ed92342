#pragma once

#include "platform/status.h"

namespace tarnwell {

struct Form1;

// The learning file of a camera and mode, in its mode folder.
inline constexpr char kLearningFile[] = "Smart Data.tsd";

// Adds the last run's learning record to the learning file of the current camera and mode. Nothing
// is added, and the result is Ok, when "Learn from saved photos" is not checked, when learning is
// suppressed for this photo, or when the run left no record. Fails with the reason that the file
// could not be written.
Status AppendLearningRecord(Form1& form);

}  // namespace tarnwell
