#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "imaging/photoshop_block.h"

// Any bytes are damaged, or come back the same when they are changed once more.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarnwell;
  const std::string_view block(reinterpret_cast<const char*>(data), size);
  for (const bool leave_place_out : {false, true}) {
    const auto changed = ChangedPhotoshopBlock(block, leave_place_out);
    if (changed && ChangedPhotoshopBlock(*changed, leave_place_out) != changed) std::abort();
  }
  return 0;
}
