#include "console/console_dialogs.h"

#include "console/shown_text.h"

namespace tarnwell {

Answer ConsoleDialogs::Ask(const Message& message) {
  if (message.topic == Topic::kUnappliedChanges) {
    return save_thumbnail_ ? Answer::kNo : Answer::kYes;
  }
  if (message.topic == Topic::kUnsavedChanges) return Answer::kNo;
  return Answer::kCancel;
}

void ConsoleDialogs::Tell(const Message& message) {
  // The command takes its next name then, or says itself that it has none.
  if (message.topic == Topic::kTakenName) return;
  TellLine(err_, message.text);
}

}  // namespace tarnwell
