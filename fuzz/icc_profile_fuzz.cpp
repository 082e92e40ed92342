#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "imaging/icc_profile.h"

// Pieces cut from any bytes, the first of each telling its length, join to a profile that begins
// like one, or to none.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarnwell;
  std::string_view rest(reinterpret_cast<const char*>(data), size);
  std::vector<std::string> made;
  while (!rest.empty()) {
    const std::string_view piece = rest.substr(1, static_cast<std::uint8_t>(rest[0]));
    made.push_back(std::string("ICC_PROFILE\0", 12) + std::string(piece));
    rest.remove_prefix(1 + piece.size());
  }
  const auto profile = JoinIccProfile(std::vector<std::string_view>(made.begin(), made.end()));
  if (profile && (profile->size() < 128 || profile->substr(36, 4) != "acsp")) std::abort();
  return 0;
}
