#include "shell/shut_down.h"

#include "imaging/file_open.h"
#include "platform/events.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/main_view.h"
#include "shell/main_window.h"
#include "shell/module1.h"
#include "shell/scoped_flag.h"
#include "shell/settings_store.h"
#include "shell/tell.h"
#include "shell/tips.h"

namespace tarnwell {
namespace {

Status KeepSettings(MainWindow& window) {
  WindowMemory& memory = window.form.memory;
  memory.tips_setting = TipsSettingText(window.tips);
  memory.hidden_tips = HiddenTipsText(window.tips);
  return INISave(window.form);
}

// Ends what runs, and closes the window behind it.
void CloseAfterwards(MainWindow& window) {
  window.form.app.cancel_requested = true;
  window.close_wanted = true;
}

// Whether the unsaved changes, if any, are settled. Saving may lack the memory: the window stays,
// and the next close asks again.
bool MayClose(MainWindow& window) {
  bool may_close = false;
  const ScopedFlag asking(window.close_asked);
  TellLackOfMemory(window.form, [&] { may_close = AskToSaveChanges(window.form); });
  return may_close;
}

}  // namespace

bool CloseMainWindow(MainWindow& window) {
  Form1& form = window.form;
  if (form.app.closing || window.close_asked) return false;
  if (IsOccupied(window) || window.pass_running) {
    CloseAfterwards(window);
    return false;
  }
  const Occupied occupied(window);
  if (!MayClose(window)) return false;
  window.view.ReleaseDrawing();
  TellLackOfMemory(form, [&] { TellFailure(form, KeepSettings(window)); });

  form.app.cancel_requested = true;
  form.app.closing = true;
  window.view.RestoreWindowProcedure();
  form.platform.events.Run();
  window.view.UnloadOtherWindows();
  window.view.RemoveTrayIcon();
  return true;
}

bool MayEndSession(MainWindow& window) {
  // The automated mode loses nothing when it is ended at any moment.
  if (window.form.app.closing || window.pass_running) return true;
  if (window.close_asked) return false;
  if (IsOccupied(window)) {
    CloseAfterwards(window);
    return false;
  }
  const Occupied occupied(window);
  return MayClose(window);
}

void EndSession(MainWindow& window) {
  // Nobody is there any more to be told of a failure.
  static_cast<void>(KeepSettings(window));
}

}  // namespace tarnwell
