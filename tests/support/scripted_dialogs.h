#pragma once

#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/dialogs.h"

namespace tarnwell {

// Dialogs that answer from queues and keep a log of every box. A question that no answer was queued
// for fails the test and is answered as if the user backed out.
class ScriptedDialogs : public Dialogs {
 public:
  enum class Kind { kAsk, kTell, kAskText, kOpenFile, kSaveFile, kFolder };
  struct Shown {
    Kind kind;
    std::string title;
    std::string
        text;  // message or prompt; the filter of the file dialogs, the start of the chooser
    Icon icon = Icon::kNone;

    bool operator==(const Shown&) const = default;
  };

  // Answers still to be given, first in first out.
  std::deque<Answer> answers;
  std::deque<std::string> texts;
  std::deque<std::optional<std::string>> open_files;
  std::deque<std::optional<std::string>> save_files;
  std::deque<std::optional<std::string>> folders;

  // While a box is up.
  std::function<void()> on_box = [] {};

  // Every box in the order of its appearance.
  std::vector<Shown> shown;

  // The texts of the boxes of one kind, for short expectations.
  std::vector<std::string> TextsOf(Kind kind) const {
    std::vector<std::string> found;
    for (const Shown& box : shown) {
      if (box.kind == kind) found.push_back(box.text);
    }
    return found;
  }
  std::vector<std::string> Asked() const { return TextsOf(Kind::kAsk); }
  std::vector<std::string> Told() const { return TextsOf(Kind::kTell); }

  Answer Ask(const Message& message) override {
    shown.push_back({Kind::kAsk, message.title, message.text, message.icon});
    on_box();
    return Next(answers, Answer::kCancel);
  }
  void Tell(const Message& message) override {
    shown.push_back({Kind::kTell, message.title, message.text, message.icon});
    on_box();
  }
  std::string AskText(const std::string& title, const std::string& prompt) override {
    shown.push_back({Kind::kAskText, title, prompt});
    return Next(texts, std::string());
  }
  std::optional<std::string> ChooseOpenFile(const std::string& title,
                                            const std::string& filter) override {
    shown.push_back({Kind::kOpenFile, title, filter});
    return Next(open_files, std::optional<std::string>());
  }
  std::optional<std::string> ChooseSaveFile(const std::string& title, const std::string& filter,
                                            TakenNames) override {
    shown.push_back({Kind::kSaveFile, title, filter});
    return Next(save_files, std::optional<std::string>());
  }
  std::optional<std::string> ChooseFolder(const std::string& title,
                                          const std::string& start) override {
    shown.push_back({Kind::kFolder, title, start});
    return Next(folders, std::optional<std::string>());
  }

 private:
  template <typename T>
  T Next(std::deque<T>& queue, T otherwise) {
    if (queue.empty()) {
      ADD_FAILURE() << "nobody expected \"" << shown.back().title << "\": " << shown.back().text;
      return otherwise;
    }
    T next = std::move(queue.front());
    queue.pop_front();
    return next;
  }
};

}  // namespace tarnwell
