#pragma once

#include <string>
#include <vector>

namespace tarnwell {

// The named reference colours for skin and which of them is selected.
struct SkinTones {
  // Names and colours in display order, always of equal length. A colour is the text RRR,GGG,BBB,
  // three digits each, as in "098,007,255". What a file held as colour is kept as it stood.
  std::vector<std::string> names = {"Average Caucasian", "Warm/Flushed Causasian",
                                    "Tanned/Olive Caucasian", "Little Green Men!"};
  std::vector<std::string> colours = {"244,198,155", "224,160,138", "236,187,098", "155,244,198"};
  int selected = 0;  // -1 when none is

  int count() const { return static_cast<int>(names.size()); }
  bool HasSelection() const { return selected >= 0 && selected < count(); }
  bool operator==(const SkinTones&) const = default;
};

}  // namespace tarnwell
