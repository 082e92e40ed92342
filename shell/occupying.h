#pragma once

#include "platform/dialogs.h"
#include "platform/events.h"
#include "shell/main_window.h"

namespace tarnwell {

// Boxes that occupy the main window while they wait for an answer, whoever opened them: what stands
// below them on the stack must not be closed away meanwhile, nor the photo change.
class OccupyingDialogs : public Dialogs {
 public:
  OccupyingDialogs(Dialogs& dialogs, MainWindow& window) : dialogs_(dialogs), window_(window) {}

  Answer Ask(const Message& message) override {
    const OccupiedMeanwhile occupied(window_);
    return dialogs_.Ask(message);
  }
  void Tell(const Message& message) override {
    const OccupiedMeanwhile occupied(window_);
    dialogs_.Tell(message);
  }
  std::string AskText(const std::string& title, const std::string& prompt) override {
    const OccupiedMeanwhile occupied(window_);
    return dialogs_.AskText(title, prompt);
  }
  std::optional<std::string> ChooseOpenFile(const std::string& title,
                                            const std::string& filter) override {
    const OccupiedMeanwhile occupied(window_);
    return dialogs_.ChooseOpenFile(title, filter);
  }
  std::optional<std::string> ChooseSaveFile(const std::string& title, const std::string& filter,
                                            TakenNames taken) override {
    const OccupiedMeanwhile occupied(window_);
    return dialogs_.ChooseSaveFile(title, filter, taken);
  }
  std::optional<std::string> ChooseFolder(const std::string& title,
                                          const std::string& start) override {
    const OccupiedMeanwhile occupied(window_);
    return dialogs_.ChooseFolder(title, start);
  }

 private:
  Dialogs& dialogs_;
  MainWindow& window_;
};

// Events that are let in outside a command, likewise.
class OccupyingEvents : public PendingEvents {
 public:
  OccupyingEvents(PendingEvents& events, MainWindow& window) : events_(events), window_(window) {}

  void Run() override {
    const OccupiedMeanwhile occupied(window_);
    events_.Run();
  }

 private:
  PendingEvents& events_;
  MainWindow& window_;
};

}  // namespace tarnwell
