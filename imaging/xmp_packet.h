#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tarnwell {

// A property's name: the address of its vocabulary, and the name there.
struct XmpName {
  std::string_view vocabulary;
  std::string_view local;
};

// What becomes of a property.
struct XmpFate {
  enum Kind { kKept, kLeftOut, kChanged };
  Kind kind = kKept;
  std::string value = {};  // of a changed one, plain text
};
using XmpRule = std::function<XmpFate(const XmpName& name)>;

// Goes once through the XML text `packet` and asks `rule` about every attribute and element, the
// outer one first. What is left out goes with all that it holds, and so does the declaration of a
// vocabulary (its local name is empty then). Everything else stays as it is, byte for byte. A
// changed element gets its new value when it holds plain text, and stays otherwise.
//
// Nothing when the text is damaged: a tag breaks off, or ends what did not begin. Takes time in
// proportion to the length of the text.
std::optional<std::string> EditXmp(std::string_view packet, const XmpRule& rule);

}  // namespace tarnwell
