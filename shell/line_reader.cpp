#include "shell/line_reader.h"

#include "shell/lenient_number.h"

namespace tarnwell {

std::optional<std::string_view> LineReader::Next() {
  if (past_end_) return std::nullopt;
  ++line_;
  if (rest_.empty()) {
    past_end_ = true;
    return std::nullopt;
  }
  const std::size_t end = rest_.find('\n');
  std::string_view line = rest_.substr(0, end);
  rest_ = end == std::string_view::npos ? std::string_view() : rest_.substr(end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

Status LineReader::Damaged(std::string_view reason) const {
  return Status::Error(Failure::kDamaged,
                       name_ + ": line " + std::to_string(line_) + ": " + std::string(reason));
}

Result<int> NextInteger(LineReader& lines) {
  const auto line = lines.Next();
  if (!line) return lines.Missing();
  const auto number = ParseLenientInt16(*line);
  if (!number) return lines.Damaged("a whole number is expected here");
  return static_cast<int>(*number);
}

}  // namespace tarnwell
