#pragma once

#include <functional>
#include <mutex>
#include <set>
#include <string>
#include <utility>

#include "platform/dialogs.h"

namespace tarnwell {

// Nobody sits at the program: questions are cancelled, and what would be told for photo after photo
// is told once. May be used by several corrections at the same time.
class UnattendedDialogs : public DialogsOfNobody {
 public:
  // `tell` is given each text once, by one caller at a time.
  explicit UnattendedDialogs(std::function<void(const std::string& text)> tell)
      : tell_(std::move(tell)) {}

  Answer Ask(const Message&) override { return Answer::kCancel; }
  void Tell(const Message& message) override;

 private:
  std::function<void(const std::string&)> tell_;
  std::mutex mutex_;
  std::set<std::string> told_;
};

}  // namespace tarnwell
