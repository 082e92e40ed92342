#pragma once

#include <functional>
#include <string>

#include "imaging/output_names.h"
#include "imaging/photo_metadata.h"
#include "imaging/pixel_buffer.h"
#include "modules/frm_modules.h"
#include "shell/form1.h"
#include "shell/module1.h"

namespace tarnwell {

// What the window shows of the open photo, and the panel, put back at the end of the scope unless
// that is forgotten. Pictures are shared, so keeping them costs nothing. Putting back takes no
// memory: it may be the lack of that which ends the scope.
class OpenPhotoKept {
 public:
  explicit OpenPhotoKept(Form1& form);
  ~OpenPhotoKept();
  OpenPhotoKept(const OpenPhotoKept&) = delete;
  OpenPhotoKept& operator=(const OpenPhotoKept&) = delete;

  void Forget() { forgotten_ = true; }

 private:
  Form1& form_;
  bool forgotten_ = false;
  Module1 app_;
  frmModules modules_;
  PhotoSurfaces surfaces_;
  SharedMetadata metadata_;
  bool metadata_notes_told_;
  std::function<void(const std::string&)> collect_note_;
  OutputNames names_;
  PictureHistogram histogram_;
  LearntProposal learnt_;
  bool correction_ready_;
  bool correction_cancelled_;
  std::string title_;
  std::string caption_;
};

}  // namespace tarnwell
