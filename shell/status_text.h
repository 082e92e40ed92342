#pragma once

#include <string>

namespace tarnwell {

struct Form1;

// The photo's name as the title label shows it, without the dash that leads it there.
std::string_view ShownPhotoName(const Form1& form);

// What the status bar says of the photo in the window: its size, whether its correction is saved,
// and what was learnt.
std::string StatusText(const Form1& form);

}  // namespace tarnwell
