#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "modules/frm_modules.h"
#include "shell/module1.h"
#include "shell/settings_store.h"
#include "shell/window_memory.h"

namespace {

using namespace tarnwell;

struct Program {
  Module1 app;
  frmModules panel = FirstStartPanel();
  WindowMemory memory;
  LastUsed settings{app, panel, memory};
};

bool InRange(int number, int lowest, int highest) { return number >= lowest && number <= highest; }

void ExpectUsable(const Program& program) {
  const frmModules& panel = program.panel;
  if (!InRange(program.app.open_mode, 0, 2) || !InRange(panel.rotation, 0, 4)) std::abort();
  if (!InRange(static_cast<int>(panel.white_balance_mode), 0, 2)) std::abort();
  if (panel.skin_tones.selected != -1 && !panel.skin_tones.HasSelection()) std::abort();
  for (int slider = 0; slider < kSliderCount; ++slider) {
    if (!InRange(panel.sliders[slider].position, 0, kKnobLast)) std::abort();
    const SliderInfo& info = kSliders[slider];
    if (!InRange(panel.Value(slider).value(), info.lowest, info.highest)) std::abort();
  }
}

}  // namespace

// Any text leaves settings in their ranges, which are written and read back as they are. The
// version line is put in front, or nothing would ever be read.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text =
      TARNWELL_VERSION "\r\n" + std::string(reinterpret_cast<const char*>(data), size);
  Program program;
  const Status read = ApplyLastUsedText(program.settings, text, "a.ini");
  if (!read.ok() && !read.message.starts_with("a.ini: line ")) std::abort();
  ExpectUsable(program);

  const std::string own = LastUsedText(program.settings);
  Program again;
  if (!ApplyLastUsedText(again.settings, own, "own.ini").ok()) std::abort();
  if (LastUsedText(again.settings) != own) std::abort();
  return 0;
}
