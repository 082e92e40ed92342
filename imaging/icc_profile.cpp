// A piece: "ICC_PROFILE", a zero byte, its number from 1, how many there are, then its part of the
// profile. The profile begins with its own length; "acsp" stands at 36, the colours it is made for
// at 16.

#include "imaging/icc_profile.h"

#include "imaging/big_endian.h"

namespace tarnwell {
namespace {

constexpr std::string_view kName("ICC_PROFILE\0", 12);
constexpr std::size_t kPieceHeader = kName.size() + 2;
constexpr std::size_t kProfileHeader = 128;

bool BeginsLikeAProfile(std::string_view bytes) {
  if (bytes.size() < kProfileHeader || bytes.substr(36, 4) != "acsp") return false;
  const std::size_t length = NumberAt(bytes, 0, 4);
  return length >= kProfileHeader && length <= bytes.size();
}

}  // namespace

bool IsIccPiece(std::string_view content) { return content.starts_with(kName); }

std::optional<std::string> JoinIccProfile(const std::vector<std::string_view>& pieces) {
  std::vector<std::string_view> in_order(pieces.size());
  for (const std::string_view piece : pieces) {
    if (!IsIccPiece(piece) || piece.size() <= kPieceHeader) return std::nullopt;
    const auto number = static_cast<std::size_t>(ByteAt(piece, kName.size()));
    const auto count = static_cast<std::size_t>(ByteAt(piece, kName.size() + 1));
    if (count != pieces.size() || number < 1 || number > count) return std::nullopt;
    if (!in_order[number - 1].empty()) return std::nullopt;
    in_order[number - 1] = piece.substr(kPieceHeader);
  }
  std::string profile;
  for (const std::string_view part : in_order) profile += part;
  if (!BeginsLikeAProfile(profile)) return std::nullopt;
  return profile;
}

bool IsRgbProfile(std::string_view profile) {
  return profile.size() >= kProfileHeader && profile.substr(16, 4) == "RGB ";
}

}  // namespace tarnwell
