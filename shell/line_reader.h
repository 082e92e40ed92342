#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/status.h"

namespace tarnwell {

// What is longer than this is no text file of the program's: those are a few hundred bytes.
inline constexpr std::uint64_t kMostTextBytes = 1 << 20;

// Reads the text of a positional file, one value per line, from top to bottom. Lines end in CR LF
// or LF; the end behind the last line may be missing. A line end at the very end of the text starts
// no further line.
class LineReader {
 public:
  // `text` must outlive the reader and the lines it gives. `name` is the file as the user knows it,
  // for messages.
  LineReader(std::string_view text, std::string name) : rest_(text), name_(std::move(name)) {}

  // The next line without its end, or nothing behind the last one.
  std::optional<std::string_view> Next();

  // Whether no line is left.
  bool AtEnd() const { return rest_.empty(); }

  // The number of the line that Next() gave or missed last, from 1; 0 before the first.
  int line() const { return line_; }

  // Failures that name the file and that line: "FILE: line 7: REASON".
  Status Damaged(std::string_view reason) const;
  Status Missing() const { return Damaged("the file ends before this line"); }

 private:
  std::string_view rest_;
  std::string name_;
  int line_ = 0;
  bool past_end_ = false;
};

// The next line as a whole number: blanks around it are allowed, a fraction goes to the nearest
// whole number (halves to the even one). Fails when the line is missing, is no number, or does not
// fit 16 bits.
Result<int> NextInteger(LineReader& lines);

}  // namespace tarnwell
