#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "shell/module1.h"
#include "shell/power_toys.h"

// Any text gives settings that are written and read back as they are.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarnwell;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  Module1 app;
  const Status read = ApplyPowerToysText(app, text, "a.ini");
  if (!read.ok() && !read.message.starts_with("a.ini: line ")) std::abort();
  Module1 again;
  if (!ApplyPowerToysText(again, PowerToysText(app), "own.ini").ok()) std::abort();
  if (PowerToysText(again) != PowerToysText(app)) std::abort();
  return 0;
}
