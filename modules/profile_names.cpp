#include "modules/profile_names.h"

#include <algorithm>
#include <array>

#include "shell/letter_case.h"

namespace tarnwell {
namespace {

constexpr std::string_view kReplaced = "/\\|:\"?";

bool IsDeviceName(const std::string& name) {
  constexpr std::array<std::string_view, 6> kDevices = {"con", "prn",    "aux",
                                                        "nul", "conin$", "conout$"};
  // What follows the first dot, and blanks before it, do not make another name of it.
  std::string base = FoldCase(name.substr(0, name.find('.')));
  base.erase(base.find_last_not_of(' ') + 1);
  if (std::find(kDevices.begin(), kDevices.end(), base) != kDevices.end()) return true;
  const bool numbered = base.starts_with("com") || base.starts_with("lpt");
  return numbered && base.size() == 4 && base[3] >= '1' && base[3] <= '9';
}

bool HoldsControlCharacter(const std::string& name) {
  return std::any_of(name.begin(), name.end(),
                     [](unsigned char c) { return c < 0x20 || c == 0x7F; });
}

Status Refused(const std::string& name, const std::string& reason) {
  return Status::Error(Failure::kUnsupported, name + ": " + reason);
}

}  // namespace

std::string CleanProfileName(std::string_view typed) {
  std::string name(typed);
  for (char& c : name) {
    if (kReplaced.find(c) != std::string_view::npos) c = '_';
  }
  return name;
}

Status CheckProfileName(const std::string& name) {
  if (HoldsControlCharacter(name)) {
    return Status::Error(Failure::kUnsupported,
                         "a name cannot hold line breaks, tabs or other control characters");
  }
  if (name.find_first_not_of(". ") == std::string::npos) {
    return Refused("\"" + name + "\"", "a name needs more than dots and blanks");
  }
  if (IsDeviceName(name)) return Refused(name, "the system keeps this name for a device");
  if (IsDeadPixelsFolder(name)) {
    return Refused(name, "this name is kept for the samples of dead pixels");
  }
  return Status::Ok();
}

bool IsDeadPixelsFolder(const std::string& name) { return FoldCase(name) == "~ dead pixels"; }

}  // namespace tarnwell
