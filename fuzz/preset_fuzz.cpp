#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "modules/presets.h"
#include "platform/events.h"

namespace {

class NoEvents : public tarnwell::PendingEvents {
  void Run() override {}
};

}  // namespace

// Any text leaves a panel whose values are in their ranges. The panel's own preset then reads
// without failure and changes nothing.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarnwell;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  NoEvents events;
  frmModules panel = FirstStartPanel();
  const auto read = ApplyPresetText(panel, text, "C:\\a.twp", "a.twp", events);
  if (!read.ok() && !read.status.message.starts_with("a.twp: line ")) std::abort();

  for (const Slider& slider : panel.sliders) {
    if (slider.position < 0 || slider.position > kKnobLast) std::abort();
  }
  for (const std::string& check : panel.checks) {
    if (check != "0" && check != "1") std::abort();
  }
  if (panel.skin_tones.selected != -1 && !panel.skin_tones.HasSelection()) std::abort();

  const std::string own = PresetText(panel, {"0", "0", "0", "0"}, "T");
  if (!ApplyPresetText(panel, own, "C:\\a.twp", "own.twp", events).ok()) std::abort();
  if (PresetText(panel, {"0", "0", "0", "0"}, "T") != own) std::abort();
  return 0;
}
