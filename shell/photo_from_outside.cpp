#include "shell/photo_from_outside.h"

#include "imaging/file_open.h"
#include "shell/form1.h"
#include "shell/main_view.h"
#include "shell/main_window.h"
#include "shell/tell.h"

namespace tarnwell {

void OpenFromOutside(MainWindow& window, const std::function<std::optional<std::string>()>& take) {
  if (IsOccupied(window)) return;
  const Occupied occupied(window);
  Form1& form = window.form;
  TellLackOfMemory(form, [&] {
    if (!AskToSaveChanges(form)) return;
    if (const auto path = take()) TellFailure(form, OpenPhotoFile(form, *path));
  });
  window.view.Refresh();
}

}  // namespace tarnwell
