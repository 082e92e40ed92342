#pragma once

#include <functional>
#include <string>

#include "platform/events.h"

namespace tarnwell {

struct Form1;

// Does `work` on a thread of its own, where the system lends one, and lets events in meanwhile: for
// what cannot be cut into short steps, as reading and writing files. The thread has ended on
// return. The events may change whatever they like, so `work` must not look at the form's data and
// only keep hold of what it needs of it.
//
// When it takes more than an instant the progress window comes up with `job` as its text. Cancel,
// from the call on, makes `work` be told to end. Returns false when it was; what `work` has made by
// then may or may not be complete. What `work` throws is thrown again.
bool DoBesideEvents(Form1& form, const std::string& job,
                    const std::function<void(const GoOn& go_on)>& work);

}  // namespace tarnwell
