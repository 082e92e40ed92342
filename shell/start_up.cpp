#include "shell/start_up.h"

#include <string_view>

#include "platform/files.h"
#include "platform/instances.h"
#include "platform/platform.h"
#include "shell/lenient_number.h"
#include "shell/letter_case.h"
#include "shell/manifest.h"
#include "shell/module1.h"
#include "shell/photo_queue.h"
#include "shell/preset_files.h"
#include "shell/tell.h"

namespace tarnwell {
namespace {

// Ends the program when there are no presets; for set-ups that start it only to apply them.
constexpr std::string_view kPresetsOnly = "\\a";

std::string_view WithoutQuotes(std::string_view text) {
  if (!text.starts_with('"')) return text;
  text.remove_prefix(1);
  if (!text.empty()) text.remove_suffix(1);
  return text;
}

// The name of the program's file without folder and extension.
std::string BaseName(const std::string& executable) {
  const std::string name = executable.substr(executable.rfind('\\') + 1);
  return name.substr(0, name.rfind('.'));
}

// The other instance has a current folder of its own, so it is handed an absolute path.
void QueuePhoto(const Module1& app, Platform& platform, std::string_view path) {
  const std::string line = QueueLine(platform.files.Absolute(std::string(path)));
  TellFailure(app, platform, platform.files.Append(app.queue_file, line));
}

StartUp HandleCommandLine(const Module1& app, Platform& platform, RunningInstances& instances,
                          const std::string& command_line) {
  const std::string_view words = WithoutBlanks(command_line);
  if (words.empty()) return StartUp::kLoadMainWindow;
  if (FoldCase(words) == kPresetsOnly) {
    const bool any = !ListPresetFiles(platform.files, app.program_folder).empty();
    return any ? StartUp::kLoadMainWindow : StartUp::kEnd;
  }
  const std::string_view path = WithoutQuotes(words);
  if (path.empty()) return StartUp::kLoadMainWindow;
  QueuePhoto(app, platform, path);
  return instances.AnotherIsRunning() ? StartUp::kEnd : StartUp::kLoadMainWindow;
}

}  // namespace

StartUp StartProgram(Module1& app, Platform& platform, RunningInstances& instances,
                     const std::string& executable, const std::string& command_line) {
  const std::string base_name = BaseName(executable);
  SetProgramFolder(app, executable.substr(0, executable.rfind('\\') + 1), base_name);

  // Most often there is none; one that cannot be deleted is met again by the polling timer.
  static_cast<void>(platform.files.Delete(app.queue_file));
  const StartUp after_words = HandleCommandLine(app, platform, instances, command_line);
  if (after_words != StartUp::kLoadMainWindow) return after_words;

  const ManifestCheck manifest =
      CheckManifest(platform.files, app.program_folder + base_name + ".exe.manifest");
  return manifest == ManifestCheck::kWritten ? StartUp::kRestart : StartUp::kLoadMainWindow;
}

}  // namespace tarnwell
