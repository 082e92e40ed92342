#pragma once

#include <functional>
#include <string>

namespace tarnwell {

struct Form1;

// "Do Entire Directory": asks, corrects every photo in the folder of the photo in the window with
// the settings in force, and tells at the end how many were saved, where, and which were not and
// why. `show_status` is given one line before each photo.
void Command1_Click(Form1& form, const std::function<void(const std::string&)>& show_status);

}  // namespace tarnwell
