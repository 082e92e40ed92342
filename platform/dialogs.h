#pragma once

#include <optional>
#include <string>

namespace tarnwell {

enum class Icon { kNone, kInformation, kQuestion, kExclamation };
enum class Answer { kYes, kNo, kCancel };

// What the save dialog itself does with the name of a file that exists: asks whether to replace it,
// or leaves it to the caller, who never replaces one.
enum class TakenNames { kAsk, kLeave };

// What a box is about, where dialogs that nobody sits at have an answer of their own for it.
enum class Topic { kAnything, kUnsavedChanges, kUnappliedChanges, kTakenName };

struct Message {
  std::string title;
  std::string text;
  Icon icon = Icon::kNone;
  Topic topic = Topic::kAnything;
};

// Message boxes and choosers. Texts are UTF-8. Hosts show windows or answer from options; tests
// answer from a script.
class Dialogs {
 public:
  virtual ~Dialogs() = default;

  // A Yes/No/Cancel box.
  virtual Answer Ask(const Message& message) = 0;

  // An OK box.
  virtual void Tell(const Message& message) = 0;

  // A box with one line to fill in. Empty when the user cancels.
  virtual std::string AskText(const std::string& title, const std::string& prompt) = 0;

  // The common file dialogs, with an empty file name at the start. `filter` is pairs of
  // description and patterns joined by "|", as in "JPEG Image (*.jpg)|*.jpg". Nothing when the
  // user cancels.
  virtual std::optional<std::string> ChooseOpenFile(const std::string& title,
                                                    const std::string& filter) = 0;
  virtual std::optional<std::string> ChooseSaveFile(const std::string& title,
                                                    const std::string& filter,
                                                    TakenNames taken) = 0;

  // The folder chooser, at `start` where there is such a folder. Nothing when the user cancels.
  virtual std::optional<std::string> ChooseFolder(const std::string& title,
                                                  const std::string& start) = 0;
};

// Nobody is there to choose or to fill in: that is all cancelled.
class DialogsOfNobody : public Dialogs {
 public:
  std::string AskText(const std::string&, const std::string&) override { return {}; }
  std::optional<std::string> ChooseOpenFile(const std::string&, const std::string&) override {
    return std::nullopt;
  }
  std::optional<std::string> ChooseSaveFile(const std::string&, const std::string&,
                                            TakenNames) override {
    return std::nullopt;
  }
  std::optional<std::string> ChooseFolder(const std::string&, const std::string&) override {
    return std::nullopt;
  }
};

}  // namespace tarnwell
