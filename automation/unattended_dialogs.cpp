#include "automation/unattended_dialogs.h"

#include "imaging/file_save.h"

namespace tarnwell {

void UnattendedDialogs::Tell(const std::string& title, const std::string& text, Icon) {
  // A name that was taken meanwhile is no news: the photo is saved under the next one.
  if (title == kNameTakenTitle) return;
  // A set that grew for ever would be a leak in a program that runs for weeks.
  constexpr std::size_t kMostRemembered = 1000;
  const std::lock_guard lock(mutex_);
  if (told_.size() >= kMostRemembered) told_.clear();
  if (told_.insert(text).second) tell_(text);
}

}  // namespace tarnwell
