#pragma once

#include <string>

#include "platform/status.h"

namespace tarnwell {

class Files;

// `path` itself when nothing has that name; otherwise with "~" and the lowest number from 1 on that
// makes it free: the part before the LAST dot of the whole path, "~", the number, then everything
// from the FIRST dot of the whole path on. So x.y.jpg becomes x.y~1.y.jpg. `path` is absolute.
std::string FreeName(const std::string& path, Files& files);

// The name that FreeName tries for `number`; 0 is `path` itself.
std::string NumberedName(const std::string& path, int number);

// Fails when `path`, made free from `wish`, lies in a folder that does not exist: a dot in the name
// of a folder does that. Found before the work begins, so that nothing is corrected in vain.
Status NameLeadsSomewhere(Files& files, const std::string& path, const std::string& wish);

}  // namespace tarnwell
