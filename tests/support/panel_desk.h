#pragma once

#include <string>
#include <vector>

#include "imaging/jpeg_library.h"
#include "modules/frm_modules.h"
#include "platform/picture_codec.h"
#include "platform/platform.h"
#include "shell/module1.h"
#include "tests/support/fakes.h"
#include "tests/support/memory_files.h"
#include "tests/support/scripted_dialogs.h"

namespace tarnwell {

// The module panel with files in memory and a scripted user, for rules that touch no photo file.
// The panel is as at first start.
struct PanelDesk {
  class NoCodec final : public PictureCodec {
    Result<Picture> Decode(std::string_view, const std::string& name, const GoOn&) override {
      return Status::Error(Failure::kUnsupported, name + ": no pictures here");
    }
    Result<Picture> Load(const std::string& path, const GoOn&) override {
      return Status::Error(Failure::kUnsupported, path + ": no pictures here");
    }
    Status SaveBitmap(const std::string& path, const PixelView&, const GoOn&) override {
      return Status::Error(Failure::kUnsupported, path + ": no pictures here");
    }
  };
  class NoJpeg final : public JpegLibrary {
    int ijlInit(JPEG_CORE_PROPERTIES*) override { return -1; }
    int ijlWrite(JPEG_CORE_PROPERTIES*, int) override { return -1; }
    int ijlFree(JPEG_CORE_PROPERTIES*) override { return -1; }
    std::string EncodePath(const std::string& path) override { return path; }
  };

  MemoryFiles files;
  NoCodec codec;
  NoJpeg jpeg;
  ScriptedDialogs dialogs;
  RecordingEvents events;
  FakeClock clock;
  FakeClipboard clipboard;
  Platform platform{files, codec, jpeg, dialogs, events, clock, clipboard};
  Module1 app;
  frmModules panel = FirstStartPanel();
  std::vector<ZoomMode> zooms;  // what the zoom window was opened for

  PanelDesk() {
    SetProgramFolder(app, "C:\\TP", "TarnwellPocket");
    panel.ShowZoom = [this](ZoomMode mode) { zooms.push_back(mode); };
  }
  PanelDesk(const PanelDesk&) = delete;
  PanelDesk& operator=(const PanelDesk&) = delete;

  std::string ModeFile() const { return app.mode_folder + "White Balance.wbs"; }
};

}  // namespace tarnwell
