#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "engine/learning_store.h"

// Any text gives records whose proposals are numbers. A trimmed file is read without the oldest
// records and needs no further trim until it has grown again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarnwell;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const LoadedLearning loaded = ParseLearningData(text, "a.tsd");
  if (!loaded.status.ok() && !loaded.status.message.starts_with("a.tsd: line ")) std::abort();

  const LearningRecord photo = {700, 20, 250, 5, 0.9, 0.1, 0.5, 0.4, 690, 30};
  const LearntProposal proposal = ProposalFor(loaded.data, photo);
  for (const double offset : {proposal.brightness, proposal.saturation, proposal.contrast}) {
    if (!std::isfinite(offset)) std::abort();
  }
  if (ProposalText(proposal).size() > 100) std::abort();

  const std::size_t count = loaded.data.records.size();
  const auto trimmed = TrimmedLearningText(text);
  if (trimmed.has_value() != (count > kMostRecords)) std::abort();
  if (trimmed && ParseLearningData(*trimmed, "b").data.records.size() != count - kTrimmedRecords) {
    std::abort();
  }
  return 0;
}
