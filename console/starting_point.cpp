#include "console/starting_point.h"

#include <string>
#include <utility>

#include "console/idle_settings.h"
#include "console/panel_settings.h"
#include "console/shown_text.h"
#include "engine/learning_store.h"
#include "modules/open_mode.h"
#include "platform/platform.h"
#include "platform/system.h"

namespace tarnwell {

Status Prepare(const Settings& settings, Platform& platform, std::ostream& err,
               StartingPoint& start) {
  const Status found = UseProgramFolder(settings.program_folder, platform.files, start.app);
  if (!found.ok()) return found;
  start.app.open_mode = kLeaveAll;
  const Status applied = ApplySettings(settings, platform, start.app, start.modules);
  if (!applied.ok()) return applied;
  start.tells_other_quality = !settings.quiet;
  if (!settings.quiet) {
    for (const std::string& idle : IdleSettings(settings, start.modules)) TellLine(err, idle);
  }
  LoadedLearning learnt = LoadLearningData(platform.files, start.app.mode_folder);
  if (!learnt.status.ok()) TellLine(err, learnt.status.message);
  start.learning = std::move(learnt.data);
  return Status::Ok();
}

int ThreadsOf(const Settings& settings) {
  return settings.threads > 0 ? settings.threads : SystemProcessorCount();
}

}  // namespace tarnwell
