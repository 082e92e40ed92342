#pragma once

#include <string>

#include "modules/profiles.h"

namespace tarnwell {

class Files;
struct Form1;
struct Module1;

// What the program does whenever another camera or mode comes into force: captions and folders
// (made when missing), the mode's white balance, and what was learnt for it, in this order.
// Failures are told to the user.
void SelectCameraAndMode(Form1& form, const std::string& camera, const std::string& mode);

// A click on an entry of a list, as ListProfiles gives it. A camera comes with its mode "Default".
void ProfileEntry_Click(Form1& form, ProfileList list, const std::string& entry);

// "New Mode": what was learnt for the mode before counts no more.
void NewModeClick(Form1& form);

// "Default Values" of a module (PicDefault_Click). True when something was reset.
bool DefaultValuesClick(Form1& form, int module);

// Whether a name, of whatever origin, is that of an existing camera, or of an existing mode of it.
bool IsCamera(const Module1& app, Files& files, const std::string& camera);
bool IsMode(const Module1& app, Files& files, const std::string& camera, const std::string& mode);

}  // namespace tarnwell
