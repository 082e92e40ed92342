#pragma once

#include <ostream>

#include "console/options.h"
#include "engine/learning_data.h"
#include "modules/frm_modules.h"
#include "platform/status.h"
#include "shell/module1.h"

namespace tarnwell {

struct Platform;

// What every photo of a command starts from: none knows of the others.
struct StartingPoint {
  Module1 app;
  frmModules modules = FirstStartPanel();
  LearningData learning;
  bool tells_other_quality = false;
};

// Brings the settings of a command into force and loads what was learnt. Fails when the settings
// name a file that cannot be read; nothing is to be corrected then. What is wrong with the learning
// file, and which settings do nothing, is only told on `err`.
Status Prepare(const Settings& settings, Platform& platform, std::ostream& err,
               StartingPoint& start);

// The threads that the command may use.
int ThreadsOf(const Settings& settings);

}  // namespace tarnwell
