#include "shell/module1.h"

namespace tarnwell {

void SetProgramFolder(Module1& app, const std::string& program_folder,
                      const std::string& executable_base_name) {
  app.program_folder = program_folder;
  if (!app.program_folder.ends_with('\\')) app.program_folder += '\\';
  app.help_file = app.program_folder + executable_base_name + ".hlp";
  app.settings_file = app.program_folder + executable_base_name + ".ini";
  app.queue_file = app.program_folder + "queue.ini";
  app.cameras_root = app.program_folder + "Cameras\\";
  SetProfile(app, "Default", "Default");
}

void SetProfile(Module1& app, const std::string& camera, const std::string& mode) {
  app.camera_folder = app.cameras_root + camera + "\\";
  app.mode_folder = app.camera_folder + mode + "\\";
}

}  // namespace tarnwell
