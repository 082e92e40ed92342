#pragma once

#include <functional>
#include <string>
#include <vector>
#include <windows.h>

#include "platform/dialogs.h"

namespace tarnwell {

// The system's file dialog for any number of files; none when the user cancels. Title and filter
// are as in Dialogs.
std::vector<std::string> ChooseOpenFiles(HWND owner, const std::string& title,
                                         const std::string& filter);

// The system's message boxes and file dialogs over the main window.
class HostDialogs : public Dialogs {
 public:
  // The window that a dialog comes up over now.
  std::function<HWND()> owner = [] { return HWND(nullptr); };
  // Where the file dialogs start until the user has gone to another folder; empty for the system's
  // own choice.
  std::function<std::string()> first_folder = [] { return std::string(); };
  // The box with one line to fill in; the program's own window.
  std::function<std::string(const std::string& title, const std::string& prompt)> ask_text =
      [](const std::string&, const std::string&) { return std::string(); };

  Answer Ask(const Message& message) override;
  void Tell(const Message& message) override;
  std::string AskText(const std::string& title, const std::string& prompt) override;
  std::optional<std::string> ChooseOpenFile(const std::string& title,
                                            const std::string& filter) override;
  std::optional<std::string> ChooseSaveFile(const std::string& title, const std::string& filter,
                                            TakenNames taken) override;
  std::optional<std::string> ChooseFolder(const std::string& title,
                                          const std::string& start) override;
};

}  // namespace tarnwell
