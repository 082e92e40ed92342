#pragma once

#include <string>

namespace tarnwell {

struct Form1;

// Names the photo `file_name` (without folder; empty for a pasted photo) in the title label and in
// the window's caption.
void ShowPhotoName(Form1& form, const std::string& file_name);

}  // namespace tarnwell
