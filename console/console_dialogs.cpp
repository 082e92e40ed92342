#include "console/console_dialogs.h"

#include "imaging/file_save.h"

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

Answer ConsoleDialogs::Ask(const std::string&, const std::string& text, Icon) {
  if (text.starts_with("You have not yet applied your changes")) {
    return save_thumbnail_ ? Answer::kNo : Answer::kYes;
  }
  if (text.starts_with("Do you want to save the changes")) return Answer::kNo;
  return Answer::kCancel;
}

void ConsoleDialogs::Tell(const std::string& title, const std::string& text, Icon) {
  // The command takes its next name then, or says itself that it has none.
  if (title == kNameTakenTitle) return;
  err_ << OneLine(text) << std::endl;
}

std::string ConsoleDialogs::AskText(const std::string&, const std::string&) { return {}; }

std::optional<std::string> ConsoleDialogs::ChooseOpenFile(const std::string&, const std::string&) {
  return std::nullopt;
}

std::optional<std::string> ConsoleDialogs::ChooseSaveFile(const std::string&, const std::string&,
                                                          TakenNames) {
  return std::nullopt;
}

std::optional<std::string> ConsoleDialogs::ChooseFolder(const std::string&, const std::string&) {
  return std::nullopt;
}

}  // namespace tarnwell
