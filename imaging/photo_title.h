#pragma once

#include <string>

namespace tarnwell {

struct Form1;

// Names the photo `file_name` (without folder; empty for a pasted photo) in the title label and in
// the window's caption.
void ShowPhotoName(Form1& form, const std::string& file_name);

// What messages call the photo in the window: its file name, or "the current image" when it has
// none.
std::string CurrentPhotoName(const Form1& form);

}  // namespace tarnwell
