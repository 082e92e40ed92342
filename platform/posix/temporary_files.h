#pragma once

#include <optional>
#include <string>

namespace tarnwell {

// The temporary files of this program, ".tarnwell-PROCESS-COUNTER-SESSION.tmp": the counter tells
// the calls of a process apart, and the session processes that had the same number: by where they
// ran, in its upper half, and at random. Whether a process elsewhere still runs cannot be seen.

// A path for a new file in `folder` (both are paths of the system, the folder ends in a slash or is
// empty) that no other call and no other program is given. The first call for a folder deletes
// what ended programs left there.
std::string NewTemporaryIn(const std::string& folder);

// The number of the process whose temporary file has this name; nothing for any other name.
std::optional<long> ProcessOfTemporary(const std::string& name);

// Deletes the temporary files in `folder`, given like above, of processes that no longer run,
// and those of a day ago that came from elsewhere. Returns how many went.
int DeleteStraysIn(const std::string& folder);

}  // namespace tarnwell
