#pragma once

#include <string>

namespace tarnwell {

// Whether the name promises a picture that is neither JPEG nor bitmap, as "photo.png" does. Files
// of such names are written as bitmaps all the same.
bool PromisesOtherPicture(const std::string& name);

// What the line about a saved photo adds where the name promises something else; often nothing.
std::string HowWritten(const std::string& name);

// A check of a word that names a new photo: what is wrong with it; empty when nothing is.
std::string IsOutputName(const std::string& word);

}  // namespace tarnwell
