#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "console/console_host.h"
#include "console/program.h"
#include "tests/support/test_window.h"

namespace tarnwell {

// What the user was told. `ok`: that all went well, without a word.
struct Told {
  bool ok = true;
  std::string text;
};

// One command of the console program on the window's folder, which "@" at the start of a word
// stands for, and with the window's program folder.
inline Told RunInFolderOf(TestWindow& window, std::vector<std::string> words) {
  for (std::string& word : words) {
    if (word.starts_with('@')) word = window.folder.File(word.substr(1));
  }
  words.insert(words.end(), {"--program-folder", window.folder.File("program")});
  std::ostringstream out, err;
  ConsoleHost host{out, err};
  const int code = RunProgram(words, host);
  return {code == 0 && err.str().empty(), err.str()};
}

// The message of `status` and of every box that was shown since the last time, each on a line.
inline Told TellOf(TestWindow& window, const Status& status) {
  Told told = {status.ok(), status.message};
  for (const std::string& text : window.dialogs.Told()) {
    told.text += (told.text.empty() ? "" : "\n") + text;
    told.ok = false;
  }
  window.dialogs.shown.clear();
  return told;
}

}  // namespace tarnwell
