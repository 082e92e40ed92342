#include "shell/profile_selection.h"

#include <utility>

#include "engine/learning_store.h"
#include "imaging/output_names.h"
#include "modules/frm_modules.h"
#include "modules/profile_names.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/module1.h"
#include "shell/tell.h"

namespace tarnwell {
namespace {

void LoadLearning(Form1& form) {
  LoadedLearning loaded = LoadLearningData(form.platform.files, form.app.mode_folder);
  form.learning = std::move(loaded.data);
  TellFailure(form, loaded.status);
}

// One folder below another, and not a way out of it.
bool IsFolderName(const std::string& name) {
  return CheckProfileName(name).ok() && name.find_first_of("\\/") == name.npos;
}

}  // namespace

void SelectCameraAndMode(Form1& form, const std::string& camera, const std::string& mode) {
  SelectProfileByName(form.app, form.platform, form.modules, camera, mode);
  LoadLearning(form);
}

void ProfileEntry_Click(Form1& form, ProfileList list, const std::string& entry) {
  SelectProfile(form.app, form.platform, form.modules, list, entry);
  LoadLearning(form);
}

void NewModeClick(Form1& form) {
  const std::string before = form.app.mode_folder;
  NewMode(form.app, form.platform, form.modules);
  if (form.app.mode_folder != before) LoadLearning(form);
}

bool DefaultValuesClick(Form1& form, int module) {
  if (!PicDefault_Click(form.app, form.platform, form.modules, module)) return false;
  if (module == kCameraAndMode) SelectCameraAndMode(form, kDefaultProfile, kDefaultProfile);
  if (module == kSavePhotoAs) {
    BuildOutputNames(form.names, form.app.current_file, form.platform.files);
  }
  return true;
}

bool IsCamera(const Module1& app, Files& files, const std::string& camera) {
  return IsFolderName(camera) && files.FolderExists(app.cameras_root + camera + "\\");
}

bool IsMode(const Module1& app, Files& files, const std::string& camera, const std::string& mode) {
  return IsCamera(app, files, camera) && IsFolderName(mode) &&
         files.FolderExists(app.cameras_root + camera + "\\" + mode + "\\");
}

}  // namespace tarnwell
