#include "console/console_dialogs.h"

namespace tarnwell {

std::string OneLine(const std::string& text) {
  std::string line;
  for (const char c : text) {
    const bool line_end = c == '\r' || c == '\n';
    if (line_end && (line.empty() || line.back() == ' ')) continue;
    line += line_end ? ' ' : c;
  }
  return line;
}

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
  err_ << OneLine(message.text) << std::endl;
}

}  // namespace tarnwell
