#include "console/program.h"

#include <new>

#include "console/camera_commands.h"
#include "console/console_host.h"
#include "console/correct_command.h"
#include "console/dead_pixels_command.h"
#include "console/directory_command.h"
#include "console/help_text.h"
#include "console/options.h"
#include "console/presets_command.h"
#include "console/shown_text.h"
#include "console/watch_command.h"

namespace tarnwell {
namespace {

// Runs a command on its words, or prints what the parser has to say about them.
template <typename Options>
int Dispatch(const ParsedWords<Options>& parsed, int (*command)(const Options&, ConsoleHost&),
             ConsoleHost& host) {
  if (parsed.options) return command(*parsed.options, host);
  host.out << parsed.out;
  host.err << WithoutControls(parsed.err);
  return parsed.exit_code;
}

int RunCommand(const std::vector<std::string>& words, ConsoleHost& host) {
  const std::string command = words.empty() ? "" : words.front();
  if (command == "--help" || command == "-h") {
    host.out << CommandsHelp();
    return kDone;
  }
  if (command == "--version") {
    host.out << "tarnwell-pocket " TARNWELL_VERSION "\n";
    return kDone;
  }
  const std::vector<std::string> rest(words.begin() + (words.empty() ? 0 : 1), words.end());
  try {
    if (command == "correct") return Dispatch(ParseCorrectWords(rest), RunCorrectCommand, host);
    if (command == "directory")
      return Dispatch(ParseDirectoryWords(rest), RunDirectoryCommand, host);
    if (command == "watch") return Dispatch(ParseWatchWords(rest), RunWatchCommand, host);
    if (command == "presets") return Dispatch(ParsePresetsWords(rest), RunPresetsCommand, host);
    if (command == "cameras") return Dispatch(ParseCamerasWords(rest), RunCamerasCommand, host);
    if (command == "learning") return Dispatch(ParseLearningWords(rest), RunLearningCommand, host);
    if (command == "deadpixels")
      return Dispatch(ParseDeadPixelsWords(rest), RunDeadPixelsCommand, host);
  } catch (const std::bad_alloc&) {
    host.err << command << ": not enough memory" << std::endl;
    return kSomePhotoFailed;
  }
  host.err << (command.empty() ? "A command is missing.\n"
                               : OneLine(command) + ": no such command\n")
           << CommandsHelp();
  return kWrongUsage;
}

}  // namespace

int RunProgram(const std::vector<std::string>& words, ConsoleHost& host) {
  const int code = RunCommand(words, host);
  // Whoever reads standard output takes a success for all of it.
  if (host.out.flush()) return code;
  host.err << "What belongs on standard output could not be written." << std::endl;
  return code == kDone ? kSomePhotoFailed : code;
}

}  // namespace tarnwell
