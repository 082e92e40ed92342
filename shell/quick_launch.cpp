#include "shell/quick_launch.h"

#include <string>

#include "platform/dialogs.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/main_view.h"
#include "shell/main_window.h"
#include "shell/module1.h"
#include "shell/tell.h"

namespace tarnwell {

void OfferQuickLaunchShortcut(MainWindow& window) {
  Dialogs& dialogs = window.form.platform.dialogs;
  const std::string& title = window.form.app.title;
  const Answer answer = dialogs.Ask(
      {title, "Would you like to add a shortcut to " + title + " to the Quick Launch bar?",
       Icon::kQuestion});
  if (answer != Answer::kYes) return;
  const Status made = window.view.MakeQuickLaunchShortcut();
  if (!made.ok()) return TellFailure(window.form, made);
  dialogs.Tell({title, "The shortcut has been added to the Quick Launch bar.", Icon::kInformation});
}

}  // namespace tarnwell
