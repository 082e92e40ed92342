#include "modules/profiles.h"

#include <algorithm>
#include <utility>

#include "modules/frm_modules.h"
#include "modules/profile_names.h"
#include "modules/white_balance.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "shell/letter_case.h"
#include "shell/module1.h"
#include "shell/tell.h"

namespace tarnwell {
namespace {

constexpr char kCurrentMarker = '>';
constexpr char kOtherMarker = ' ';

// Makes `folder` (no backslash at its end) and those above it, from the first that exists on.
Status EnsureFolder(Files& files, const std::string& folder) {
  if (folder.empty() || files.FolderExists(folder)) return Status::Ok();
  const std::size_t parent_end = folder.rfind('\\');
  if (parent_end != std::string::npos) {
    Status parent = EnsureFolder(files, folder.substr(0, parent_end));
    if (!parent.ok()) return parent;
  }
  Status made = files.CreateFolder(folder);
  // Another program may have been faster.
  if (made.failure == Failure::kExists && files.FolderExists(folder)) return Status::Ok();
  return made;
}

// The typed name, clean and usable; empty when there is none, which the user has been told.
std::string AskForName(const Module1& app, Platform& platform, const std::string& title,
                       const std::string& prompt) {
  const std::string name = CleanProfileName(platform.dialogs.AskText(title, prompt));
  if (name.empty()) return {};
  const Status usable = CheckProfileName(name);
  if (usable.ok()) return name;
  TellFailure(app, platform, usable);
  return {};
}

Status MakeNewFolder(Files& files, const std::string& parent, const std::string& name,
                     const std::string& kind) {
  Status made = files.CreateFolder(parent + name);
  if (made.failure != Failure::kExists) return made;
  return Status::Error(Failure::kExists, name + ": a " + kind +
                                             " of this name exists already, choose it from the " +
                                             "list or type another name");
}

Status MakeCamera(const Module1& app, Files& files, const std::string& name) {
  Status made = MakeNewFolder(files, app.cameras_root, name, "camera");
  if (!made.ok()) return made;
  made = files.CreateFolder(app.cameras_root + name + "\\" + kDefaultProfile);
  if (made.ok()) return made;
  // A camera without any mode must not stay behind; if even that fails, the first reason counts.
  static_cast<void>(files.DeleteFolder(app.cameras_root + name));
  return made;
}

}  // namespace

Status EnsureProfileFolders(const Module1& app, Files& files) {
  return EnsureFolder(files, app.mode_folder.substr(0, app.mode_folder.find_last_not_of('\\') + 1));
}

Result<std::vector<std::string>> ListProfiles(const Module1& app, Files& files,
                                              const frmModules& panel, ProfileList list) {
  const bool cameras = list == ProfileList::kCameras;
  Result<std::vector<FolderEntry>> listed =
      files.List(cameras ? app.cameras_root : app.camera_folder);
  if (!listed.ok()) return listed.status;

  std::vector<std::string> names;
  for (const FolderEntry& entry : *listed) {
    const bool is_mode = cameras || !IsDeadPixelsFolder(entry.name);
    if (entry.is_folder && is_mode) names.push_back(entry.name);
  }
  std::sort(names.begin(), names.end(), NameComesBefore);

  const std::string& current = cameras ? panel.camera : panel.mode;
  for (std::string& name : names) {
    name.insert(name.begin(), name == current ? kCurrentMarker : kOtherMarker);
  }
  return names;
}

std::string ProfileNameOf(const std::string& entry) { return entry.substr(1); }
bool IsCurrentProfile(const std::string& entry) { return entry.starts_with(kCurrentMarker); }

void SelectProfileByName(Module1& app, Platform& platform, frmModules& panel, std::string camera,
                         std::string mode) {
  SetProfile(app, camera, mode);
  panel.camera = std::move(camera);
  panel.mode = std::move(mode);
  // A camera folder that was made by hand may lack the mode.
  const Status there = EnsureProfileFolders(app, platform.files);
  if (!there.ok()) return TellFailure(app, platform, there);
  picMode_Click(app, platform, panel, WhiteBalanceMode::kModeDefault);
}

void SelectProfile(Module1& app, Platform& platform, frmModules& panel, ProfileList list,
                   const std::string& entry) {
  if (entry.empty()) return;
  const std::string name = ProfileNameOf(entry);
  if (list == ProfileList::kCameras) {
    SelectProfileByName(app, platform, panel, name, kDefaultProfile);
  } else {
    SelectProfileByName(app, platform, panel, panel.camera, name);
  }
}

void NewCamera(Module1& app, Platform& platform, frmModules& panel) {
  const std::string name = AskForName(app, platform, "New Camera", "Type the name of the camera:");
  if (name.empty()) return;
  const Status made = MakeCamera(app, platform.files, name);
  if (!made.ok()) return TellFailure(app, platform, made);
  panel.camera = name;
  app.camera_folder = app.cameras_root + name + "\\";
}

void NewMode(Module1& app, Platform& platform, frmModules& panel) {
  const std::string name = AskForName(
      app, platform, "New Mode", "Type the name of the mode for the " + panel.camera + " camera:");
  if (name.empty()) return;
  const Status made = MakeNewFolder(platform.files, app.camera_folder, name, "mode");
  if (!made.ok()) return TellFailure(app, platform, made);
  panel.mode = name;
  app.mode_folder = app.camera_folder + name + "\\";
}

}  // namespace tarnwell
