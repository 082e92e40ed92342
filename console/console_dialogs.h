#pragma once

#include <ostream>
#include <string>

#include "platform/dialogs.h"

namespace tarnwell {

// Nobody sits at a command: messages become lines on standard error, and questions have answers
// that were fixed beforehand.
class ConsoleDialogs : public DialogsOfNobody {
 public:
  // `save_thumbnail`: what the save does when only the thumbnail was corrected; it corrects the
  // full photo otherwise.
  ConsoleDialogs(std::ostream& err, bool save_thumbnail)
      : err_(err), save_thumbnail_(save_thumbnail) {}

  // Unsaved changes are given up; every question that could lose something else is cancelled.
  Answer Ask(const Message& message) override;
  void Tell(const Message& message) override;

 private:
  std::ostream& err_;
  bool save_thumbnail_;
};

}  // namespace tarnwell
