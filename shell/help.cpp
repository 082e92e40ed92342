#include "shell/help.h"

#include "platform/files.h"

namespace tarnwell {

std::string HelpToOpen(Files& files, const std::string& help_file) {
  if (files.FileExists(help_file)) return help_file;
  return help_file.substr(0, help_file.rfind('.')) + ".html";
}

}  // namespace tarnwell
