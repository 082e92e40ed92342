#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarnwell {

// A kind of file in a file dialog.
struct FilterEntry {
  std::string description;
  std::string patterns;  // separated by ";"
  bool operator==(const FilterEntry&) const = default;
};

// Pairs joined by "|", as in "JPEG Image (*.jpg)|*.jpg|All|*.*"; a last part without its pair is
// left out.
std::vector<FilterEntry> ParseFilter(std::string_view filter);

// The extension that a name typed without one gets for an entry: the first pattern's, without the
// dot; empty for "*.*" and the like.
std::string DefaultExtension(const FilterEntry& entry);

}  // namespace tarnwell
