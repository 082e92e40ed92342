#include "ui/look/dialog_filter.h"

namespace tarnwell {

std::vector<FilterEntry> ParseFilter(std::string_view filter) {
  std::vector<FilterEntry> entries;
  while (true) {
    const std::size_t middle = filter.find('|');
    if (middle == std::string_view::npos) return entries;
    const std::size_t end = filter.find('|', middle + 1);
    entries.push_back({std::string(filter.substr(0, middle)),
                       std::string(filter.substr(middle + 1, end - middle - 1))});
    if (end == std::string_view::npos) return entries;
    filter.remove_prefix(end + 1);
  }
}

std::string DefaultExtension(const FilterEntry& entry) {
  const std::string first = entry.patterns.substr(0, entry.patterns.find(';'));
  if (!first.starts_with("*.")) return {};
  const std::string extension = first.substr(2);
  return extension.find_first_of("*?") == std::string::npos ? extension : "";
}

}  // namespace tarnwell
