#pragma once

#include <string>
#include <vector>

#include "platform/status.h"

namespace tarnwell {

class Files;
struct frmModules;
struct Module1;
struct Platform;

// Cameras and modes are folders: Cameras\CAMERA\MODE\. Nothing here deletes or renames one.

// The camera, and the mode of every camera, that are there from the start.
inline constexpr char kDefaultProfile[] = "Default";

// The two drop-down lists of the "Camera and Mode" module, by the index of their caption
// (`lblList`).
enum class ProfileList : int { kCameras = 0, kModes = 1 };

// Makes the current mode folder and every missing folder above it.
Status EnsureProfileFolders(const Module1& app, Files& files);

// The entries of a list, sorted by name ignoring case. Each is one marker character, ">" before the
// current camera or mode and a blank before the others, followed by the name.
Result<std::vector<std::string>> ListProfiles(const Module1& app, Files& files,
                                              const frmModules& panel, ProfileList list);

std::string ProfileNameOf(const std::string& entry);
bool IsCurrentProfile(const std::string& entry);

// Selects camera and mode: captions and folders (made when missing), then white balance mode 0,
// which reads the mode's white balance. Failures are told to the user. What was learnt for camera
// and mode is the caller's to load again, here and below.
void SelectProfileByName(Module1& app, Platform& platform, frmModules& panel, std::string camera,
                         std::string mode);

// A click on an entry of a list. A camera is selected with its mode "Default".
void SelectProfile(Module1& app, Platform& platform, frmModules& panel, ProfileList list,
                   const std::string& entry);

// "New Camera": asks for a name and makes the camera with a mode "Default". The current mode stays
// as it is, until one is chosen. A name that is taken or cannot be a folder is explained to the
// user; nothing is made or selected then.
void NewCamera(Module1& app, Platform& platform, frmModules& panel);

// "New Mode", for the current camera; likewise.
void NewMode(Module1& app, Platform& platform, frmModules& panel);

}  // namespace tarnwell
