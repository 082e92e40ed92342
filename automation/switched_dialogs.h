#pragma once

#include "platform/dialogs.h"

namespace tarnwell {

// Hands every box to the user's dialogs or, while nobody is to be asked, to others.
class SwitchedDialogs : public Dialogs {
 public:
  SwitchedDialogs(Dialogs& attended, Dialogs& unattended)
      : attended_(attended), unattended_(unattended) {}

  bool nobody_there = false;

  Answer Ask(const std::string& title, const std::string& text, Icon icon) override {
    return Now().Ask(title, text, icon);
  }
  void Tell(const std::string& title, const std::string& text, Icon icon) override {
    Now().Tell(title, text, icon);
  }
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
