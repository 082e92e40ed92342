#pragma once

#include <string>

namespace tarnwell {

// The application state that the flows share. One per program, owned by the host and passed on.
// Folder paths end in a backslash.
struct Module1 {
  std::string title = "Tarnwell Pocket";  // caption of every message

  std::string program_folder;
  std::string help_file;
  std::string queue_file;
  std::string settings_file;  // the last-used settings
  std::string cameras_root;
  std::string camera_folder;
  std::string mode_folder;

  std::string opened_path;   // chosen in the open dialog, or handed over by a caller
  std::string current_file;  // full path of the photo in the window; empty for a pasted one

  std::string preset_path;  // the preset that was loaded last; the automated mode's window shows it

  bool photo_changed = false;     // the window holds corrections that are not saved
  bool cancel_requested = false;  // a running correction stops after the column in hand
  bool closing = false;           // shutting down: no correction starts any more

  bool analyze_full_source = false;  // the analysis reads the full photo, not the thumbnail
  bool extended_noise = false;       // the noise radius is not divided by 8
  bool auto_preview = false;         // a preview run follows every open
  bool confirm_reset = true;         // "Default Values" asks first
  int open_mode = 0;                 // what opening a photo does to the panel (0 to 2)
  bool power_toys = false;           // the power-toys menu is shown, its settings are kept

  std::string learning_record;     // of the last run; empty when it measured nothing
  bool suppress_learning = false;  // nothing is learnt from this photo
};

// Sets the folders and files that follow from the program folder and the profile "Default".
void SetProgramFolder(Module1& app, const std::string& program_folder,
                      const std::string& executable_base_name);

// Points camera and mode folder at this camera and mode.
void SetProfile(Module1& app, const std::string& camera, const std::string& mode);

}  // namespace tarnwell
