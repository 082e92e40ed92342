#include "shell/photo_from_outside.h"

#include "imaging/file_open.h"
#include "shell/form1.h"
#include "shell/main_view.h"
#include "shell/main_window.h"
#include "shell/tell.h"

namespace tarnwell {

bool OpenFromOutside(MainWindow& window, const std::function<std::optional<std::string>()>& take) {
  if (IsOccupied(window)) return false;
  const Occupied occupied(window);
  Form1& form = window.form;
  bool opened = false;
  TellLackOfMemory(form, [&] {
    if (!AskToSaveChanges(form)) return;
    const auto path = take();
    if (!path) return;
    const Status status = OpenPhotoFile(form, *path);
    opened = status.ok();
    TellFailure(form, status);
  });
  window.view.Refresh();
  return opened;
}

}  // namespace tarnwell
