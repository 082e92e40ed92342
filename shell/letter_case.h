#pragma once

#include <string>
#include <string_view>

namespace tarnwell {

// `text` (UTF-8) with its capital letters made small, for sorting and comparing names: Latin with
// its accented letters, Greek and Cyrillic. Everything else, broken UTF-8 too, stays as it is. The
// same on every system and in every language.
std::string FoldCase(std::string_view text);

// Whether `a` comes before `b` in a list sorted by name ignoring case. Names that differ in case
// only are ordered by their bytes, so that the order never depends on the system's.
bool NameComesBefore(const std::string& a, const std::string& b);

}  // namespace tarnwell
