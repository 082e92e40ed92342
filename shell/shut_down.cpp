#include "shell/shut_down.h"

#include "imaging/file_open.h"
#include "platform/events.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/main_view.h"
#include "shell/main_window.h"
#include "shell/module1.h"
#include "shell/settings_store.h"
#include "shell/tell.h"
#include "shell/tips.h"

namespace tarnwell {

bool CloseMainWindow(MainWindow& window) {
  Form1& form = window.form;
  if (form.app.closing) return false;
  if (IsOccupied(window) || window.pass_running) {
    form.app.cancel_requested = true;
    window.close_wanted = true;
    return false;
  }
  const Occupied occupied(window);
  if (!AskToSaveChanges(form)) return false;
  window.view.ReleaseDrawing();
  form.memory.tips_setting = TipsSettingText(window.tips);
  form.memory.hidden_tips = HiddenTipsText(window.tips);
  TellFailure(form, INISave(form));

  form.app.cancel_requested = true;
  form.app.closing = true;
  window.view.RestoreWindowProcedure();
  form.platform.events.Run();
  window.view.UnloadOtherWindows();
  window.view.RemoveTrayIcon();
  return true;
}

}  // namespace tarnwell
