#pragma once

#include <string>

#include "platform/status.h"

namespace tarnwell {

// Gives the file `from` the name `to` on the same volume, never replacing anything: kExists when
// the name is taken. `other_volume` (may be null) is set when the two lie on different volumes;
// the call fails then.
Status RenameWithoutReplacing(const std::string& from, const std::string& to, bool* other_volume);

// Copies the file `from` to the new file `to`, with its rights and its time of last change, and
// flushes the copy. On failure no copy is left; a failure to write names `shown`.
Status CopyFlushed(const std::string& from, const std::string& to, const std::string& shown);

}  // namespace tarnwell
