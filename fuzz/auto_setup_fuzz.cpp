#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "automation/auto_setup.h"

// Any text gives three folders that are written and read back as they are, or changes none.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarnwell;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const AutoFolders before = {"a\\", "b\\", "c\\"};
  AutoFolders folders = before;
  const Status read = ApplyAutoSetupText(text, "a.ini", folders);
  if (!read.ok()) {
    if (folders != before || !read.message.starts_with("a.ini: line ")) std::abort();
    return 0;
  }
  AutoFolders again;
  if (!ApplyAutoSetupText(AutoSetupText(folders), "own.ini", again).ok()) std::abort();
  for (int i = 0; i < 3; ++i) {
    if (!folders[i].ends_with('\\') || again[i] != folders[i]) std::abort();
  }
  return 0;
}
