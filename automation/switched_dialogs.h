#pragma once

#include "platform/dialogs.h"

namespace tarnwell {

// Hands every box to the user's dialogs or, while nobody is to be asked, to others.
class SwitchedDialogs : public Dialogs {
 public:
  SwitchedDialogs(Dialogs& attended, Dialogs& unattended)
      : attended_(attended), unattended_(unattended) {}

  bool nobody_there = false;

  Answer Ask(const Message& message) override { return Now().Ask(message); }
  void Tell(const Message& message) override { Now().Tell(message); }
  std::string AskText(const std::string& title, const std::string& prompt) override {
    return Now().AskText(title, prompt);
  }
  std::optional<std::string> ChooseOpenFile(const std::string& title,
                                            const std::string& filter) override {
    return Now().ChooseOpenFile(title, filter);
  }
  std::optional<std::string> ChooseSaveFile(const std::string& title, const std::string& filter,
                                            TakenNames taken) override {
    return Now().ChooseSaveFile(title, filter, taken);
  }
  std::optional<std::string> ChooseFolder(const std::string& title,
                                          const std::string& start) override {
    return Now().ChooseFolder(title, start);
  }

 private:
  Dialogs& Now() { return nobody_there ? unattended_ : attended_; }

  Dialogs& attended_;
  Dialogs& unattended_;
};

}  // namespace tarnwell
