#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "imaging/jpeg_library.h"
#include "imaging/thumbnail.h"
#include "modules/frm_modules.h"
#include "platform/files.h"
#include "platform/picture_codec.h"
#include "platform/platform.h"
#include "platform/system.h"
#include "shell/form1.h"
#include "shell/frm_progress.h"
#include "shell/module1.h"
#include "tests/support/fakes.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/temp_folder.h"

namespace tarnwell {

// A main window whose files and codecs are the system's, in a temporary folder of its own, and
// whose user is a script. The panel is as at first start; the mode folder exists.
struct TestWindow {
  struct Notification {
    std::string text;
    int milliseconds;
    bool operator==(const Notification&) const = default;
  };

  TempFolder folder;  // for photos; the program folder is "program" in it
  std::unique_ptr<Files> files;
  std::unique_ptr<PictureCodec> codec = MakeSystemPictureCodec();
  std::unique_ptr<JpegLibrary> jpeg;
  ScriptedDialogs dialogs;
  RecordingEvents events;
  FakeClock clock;
  FakeClipboard clipboard;
  Platform platform;
  Module1 app;
  frmModules modules = FirstStartPanel();
  frmProgress progress;
  Form1 form;
  std::vector<Tip> tips;
  std::vector<Notification> notifications;

  explicit TestWindow(std::unique_ptr<Files> with_files = MakeSystemFiles(),
                      std::unique_ptr<JpegLibrary> with_jpeg = MakeSystemJpegLibrary())
      : files(std::move(with_files)),
        jpeg(std::move(with_jpeg)),
        platform{*files, *codec, *jpeg, dialogs, events, clock, clipboard},
        form{.app = app, .platform = platform, .modules = modules, .progress = progress} {
    SetProgramFolder(app, folder.MakeFolder("program"), "TarnwellPocket");
    folder.MakeFolder("program\\Cameras\\Default\\Default");
    form.ShowTips = [this](Tip tip) { tips.push_back(tip); };
    form.ShowNotification = [this](const std::string& text, int milliseconds) {
      notifications.push_back({text, milliseconds});
    };
  }
  TestWindow(const TestWindow&) = delete;
  TestWindow& operator=(const TestWindow&) = delete;

  PhotoSurfaces& surfaces() { return form.buffer.surfaces; }

  // Puts `photo` into the window as an opened photo without a file, unmeasured.
  void Show(const Picture& photo) {
    Display(surfaces().picOriginal, photo);
    Display(surfaces().picSource, photo);
    MakeThumbnail(form.buffer, events);
  }

  // Writes `picture` as the bitmap file `name` in the folder. Returns its path.
  std::string WriteBitmap(const std::string& name, const Picture& picture) {
    const Status written = codec->SaveBitmap(folder.File(name), picture->view());
    EXPECT_TRUE(written.ok()) << written.message;
    return folder.File(name);
  }
};

}  // namespace tarnwell
