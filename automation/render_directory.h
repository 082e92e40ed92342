#pragma once

#include <functional>
#include <string>

namespace tarnwell {

struct Form1;

// What the main window shows while a directory is corrected.
struct DirectoryView {
  std::function<void(const std::string& line)> show_status;  // one line before each photo
  std::function<void()> show_photo;                          // another photo is in the window
};

// "Do Entire Directory": asks, corrects every photo in the folder of the photo in the window with
// the settings in force, and tells at the end how many were saved, where, and which were not and
// why.
void Command1_Click(Form1& form, const DirectoryView& view);

}  // namespace tarnwell
