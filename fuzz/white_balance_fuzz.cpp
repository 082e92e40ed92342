#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "modules/white_balance_file.h"

// Any text gives a setting in its ranges or a failure that names file and line. A setting comes
// back unchanged when it is written and read again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarnwell;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const Result<WhiteBalanceSetting> read = ParseWhiteBalance(text, "a.wbs");
  if (!read.ok()) {
    if (!read.status.message.starts_with("a.wbs: line ")) std::abort();
    return 0;
  }
  for (const int channel : {read->colour.red, read->colour.green, read->colour.blue}) {
    if (channel < 0 || channel > 255) std::abort();
  }
  if (read->slider_position < 0 || read->slider_position > kKnobLast) std::abort();
  const Result<WhiteBalanceSetting> again = ParseWhiteBalance(WhiteBalanceText(*read), "b.wbs");
  if (!again.ok() || *again != *read) std::abort();
  return 0;
}
