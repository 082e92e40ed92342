#pragma once

#include <functional>
#include <utility>

#include "console/console_events.h"
#include "console/console_system.h"
#include "console/starting_point.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/frm_progress.h"
#include "shell/tell.h"

namespace tarnwell {

inline constexpr char kNoMapNote[] =
    "No dead pixel map of this camera fits the photo's size; its dead pixels stay.";

// The main window of one correction, unseen: everything that it changes is its own, so that several
// may work side by side. `system` and `dialogs` outlive it. `interrupted` is the question whether
// the correction is to be cancelled.
struct ConsoleWindow {
  Module1 app;
  frmModules modules;
  frmProgress progress;
  ConsoleEvents events;
  Platform platform;
  Form1 form;

  ConsoleWindow(const StartingPoint& start, ConsoleSystem& system, Dialogs& dialogs,
                std::function<bool()> interrupted, int threads, ProgressView* view = nullptr)
      : app(start.app),
        modules(start.modules),
        events(std::move(interrupted), app.cancel_requested),
        platform{*system.files, *system.codec, *system.jpeg,    dialogs,
                 events,        *system.clock, system.clipboard},
        form{.app = app, .platform = platform, .modules = modules, .progress = progress} {
    progress.view = view;
    form.learning = start.learning;
    form.threads = threads;
    form.keeps_original = false;
    form.tells_other_quality = start.tells_other_quality;
    form.buffer.shows_container = false;
    form.ShowTips = [this](Tip tip) {
      if (tip == kDeadPixelTip) TellNote(form, kNoMapNote);
    };
  }
  ConsoleWindow(const ConsoleWindow&) = delete;
  ConsoleWindow& operator=(const ConsoleWindow&) = delete;
};

}  // namespace tarnwell
