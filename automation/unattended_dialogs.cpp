#include "automation/unattended_dialogs.h"

namespace tarnwell {

void UnattendedDialogs::Tell(const Message& message) {
  // A name that was taken meanwhile is no news: the photo is saved under the next one.
  if (message.topic == Topic::kTakenName) return;
  // A set that grew for ever would be a leak in a program that runs for weeks.
  constexpr std::size_t kMostRemembered = 1000;
  const std::lock_guard lock(mutex_);
  if (told_.size() >= kMostRemembered) told_.clear();
  if (told_.insert(message.text).second) tell_(message.text);
}

}  // namespace tarnwell
