#pragma once

#include <ostream>
#include <string>

namespace tarnwell {

// `text` as a terminal can be given it: what it would obey and not show, in names that came with
// somebody's files, is a question mark. Line ends stay.
std::string WithoutControls(const std::string& text);

// A text of several lines as one, without controls: line ends of any kind become single blanks.
std::string OneLine(const std::string& text);

// `line` as far as it fits into so many columns of a terminal. No character counts as narrower than
// it is.
std::string CutToWidth(const std::string& line, int columns);

// Writes the text as a line of its own.
void TellLine(std::ostream& err, const std::string& text);

}  // namespace tarnwell
