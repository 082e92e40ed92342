#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwell {

// Whether a segment APP2 with this content is a piece of a colour profile.
bool IsIccPiece(std::string_view content);

// The profile whose pieces these segments hold, put together by their numbers in whatever order
// they come. Nothing when one is missing, there twice, counted differently, or when the whole does
// not begin like a profile of its length.
std::optional<std::string> JoinIccProfile(const std::vector<std::string_view>& pieces);

// Whether the profile is made for red, green and blue.
bool IsRgbProfile(std::string_view profile);

}  // namespace tarnwell
