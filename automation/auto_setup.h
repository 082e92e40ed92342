#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/status.h"

namespace tarnwell {

class Dialogs;
class Files;

enum AutoFolder : int { kInputFolder = 0, kOutputFolder = 1, kProcessedFolder = 2 };

// The automated mode's settings (mdlAutoSetup): three folders, each with a backslash at its end,
// all empty before the first setup.
using AutoFolders = std::array<std::string, 3>;

inline constexpr char kAutoSetupFile[] = "autosetup.ini";  // in the program folder

// Reads the three lines of the settings file into `folders`. A missing file changes nothing and is
// no failure; neither does one that breaks off or cannot be read change anything, but its reason is
// returned.
Status LoadAutoSetup(Files& files, const std::string& program_folder, AutoFolders& folders);
// The same between text and settings; `name` is the file in messages.
Status ApplyAutoSetupText(std::string_view text, const std::string& name, AutoFolders& folders);
std::string AutoSetupText(const AutoFolders& folders);

Status SaveAutoSetup(Files& files, const std::string& program_folder, const AutoFolders& folders);

// `folder` with a backslash at its end; an empty one too becomes a lone backslash.
std::string WithBackslash(std::string folder);

// The setup window.
struct frmAutoSetup {
  static constexpr std::string_view kExplanation =
      "Images found in the input folder will be processed and the corrected image saved in the "
      "output directory. The input image will then be move to the processed folder.";
  static constexpr std::array<std::string_view, 3> kLabels = {"Input Folder", "Output Folder",
                                                              "Processed Folder"};
  static constexpr char kChooserTitle[] = "Please choose a folder.";
  static constexpr char kChooserStart[] = "C:\\StartHere";

  AutoFolders Text1;

  explicit frmAutoSetup(const AutoFolders& folders) : Text1(folders) {}

  // The button beside field `field`: puts the chosen folder into it.
  void BrowseClicked(int field, Dialogs& dialogs);
  // Completes the three fields, makes them the settings and writes the file.
  Status OkClicked(Files& files, const std::string& program_folder, AutoFolders& folders);
};

}  // namespace tarnwell
