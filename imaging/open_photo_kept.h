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
// that is forgotten. Pictures are shared, so keeping them costs nothing.
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
  const Module1 app_;
  const frmModules modules_;
  const PhotoSurfaces surfaces_;
  const SharedMetadata metadata_;
  const bool metadata_notes_told_;
  const std::function<void(const std::string&)> collect_note_;
  const OutputNames names_;
  const PictureHistogram histogram_;
  const LearntProposal learnt_;
  const bool correction_ready_;
  const bool correction_cancelled_;
  const std::string title_;
  const std::string caption_;
};

}  // namespace tarnwell
