#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "imaging/photo_xmp.h"

// Any text is damaged, or comes back readable, without companions, and the same for the same
// changes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarnwell;
  const std::string_view packet(reinterpret_cast<const char*>(data), size);
  const XmpChanges changes = {.upright = true,
                              .width = 40,
                              .height = 30,
                              .extension_left_out = true,
                              .leave_place_out = size % 2 == 0,
                              .turned = size % 3 == 0};
  const auto changed = ChangedXmp(packet, changes);
  if (changed.has_value() != TellsOfCompanions(packet).has_value()) std::abort();
  if (changed && !ChangedXmp(*changed, changes)) std::abort();
  return 0;
}
