#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "modules/skin_tones.h"

// Any text leaves names and colours of equal number, which come back unchanged when they are
// written and read again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarnwell;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  SkinTones tones;
  const Status read = ParseSkinTones(text, "a.ski", tones);
  if (!read.ok() && !read.message.starts_with("a.ski: line ")) std::abort();
  if (tones.names.size() != tones.colours.size()) std::abort();
  if (tones.selected != -1 && !tones.HasSelection()) std::abort();

  SkinTones again = tones;
  if (!ParseSkinTones(SkinTonesText(tones), "b.ski", again).ok() || again != tones) std::abort();
  return 0;
}
