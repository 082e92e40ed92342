#pragma once

#include <string>

namespace tarnwell {

// The temporary files of this program, "~tpPROCESS-COUNTER-SESSION.tmp": the counter tells the
// calls of a process apart, and the session processes that had the same number one after the other.

// A path for a new file in `folder` (ends in a backslash, or is empty) that no other call and no
// other program is given. The first call for a folder deletes what ended programs left there.
std::string NewTemporaryIn(const std::string& folder);

// Deletes the temporary files in `folder`, given like above, of processes that no longer run.
// Returns how many went.
int DeleteStraysIn(const std::string& folder);

}  // namespace tarnwell
