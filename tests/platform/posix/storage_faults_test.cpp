// Everything that the program writes, with every file call that it makes for that failing in turn.
//
// Whatever fails, a file has its old content or its new one, whole; no photo is lost or replaced;
// what is left of the attempt is gone after the program has worked there again; and where something
// was not done, the user reads which file it was and why.

#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <iostream>
#include <map>

#include "automation/auto_setup.h"
#include "deadpixels/dead_pixel_reset.h"
#include "engine/learning_store.h"
#include "imaging/file_open.h"
#include "imaging/file_save.h"
#include "imaging/jpeg_segments.h"
#include "imaging/output_names.h"
#include "modules/skin_tones.h"
#include "modules/white_balance.h"
#include "platform/posix/temporary_files.h"
#include "shell/power_toys.h"
#include "shell/settings_store.h"
#include "tests/platform/posix/faulty_calls.h"
#include "tests/platform/posix/own_process.h"
#include "tests/support/exif_builder.h"
#include "tests/support/folder_contents.h"
#include "tests/support/pictures.h"
#include "tests/support/test_window.h"
#include "tests/support/tiny_pictures.h"
#include "tests/support/told.h"

namespace tarnwell {
namespace {

constexpr char kModeFolder[] = "program\\Cameras\\Default\\Default\\";

std::string JpegWithExif() {
  std::string segment;
  AddSegment(segment, kFirstApp + 1, MakeExif({.width = 16, .height = 16, .place = true}));
  return WithSegments(kBaselineJpeg, segment);
}

struct Operation {
  const char* name;
  std::function<void(TestWindow&)> prepare;
  std::function<Told(TestWindow&)> run;
  Limits limits = {};
};

void PrepareWatch(TestWindow& window) {
  for (const char* name : {"in", "out", "done"}) window.folder.MakeFolder(name);
  window.folder.Write("in\\a.jpg", JpegWithExif());
}

Told RunWatch(TestWindow& window) {
  return RunInFolderOf(window, {"watch", "--quiet", "--once", "--threads", "1", "--input", "@in",
                                "--output", "@out", "--processed", "@done"});
}

void PrepareLearning(TestWindow& window, int records) {
  std::string text;
  for (int i = 0; i < records; ++i) {
    text += std::to_string(i);
    for (int field = 1; field < kRecordColumns; ++field) text += "\t0.5";
    text += "\r\n";
  }
  window.folder.Write(std::string(kModeFolder) + "Smart Data.tsd", text);
}

void PrepareShots(TestWindow& window) {
  PixelArray dark(40, 30);
  dark.mutable_view().at(17, 11)[kRed] = 200;
  window.folder.MakeFolder("program\\Cameras\\Default\\~ Dead Pixels\\40x30");
  for (const char* name :
       {"dark.bmp", "program\\Cameras\\Default\\~ Dead Pixels\\40x30\\Input1.BMP"}) {
    ASSERT_TRUE(window.codec->SaveBitmap(window.folder.File(name), dark.view()).ok());
  }
  window.folder.Write("program\\Cameras\\Default\\~ Dead Pixels\\40x30\\map.bmp", "the old map");
}

const std::vector<Operation>& Operations() {
  static const std::vector<Operation> operations = {
      {"correct, for a new camera and mode",
       [](TestWindow& window) {
         window.folder.MakeFolder("out");
         window.folder.Write("a.jpg", JpegWithExif());
       },
       [](TestWindow& window) {
         return RunInFolderOf(window, {"correct", "@a.jpg", "--output-folder", "@out", "--quiet",
                                       "--camera", "Phone", "--mode", "Beach", "--threads", "1"});
       }},
      {"correct, to be learnt beside others",
       [](TestWindow& window) {
         window.folder.MakeFolder("out");
         window.folder.Write("a.gif", kBaselineJpeg);
         window.folder.Write(std::string(kModeFolder) + "White Balance.wbs",
                             "Red: 1\r\nGrn: 2\r\nBlu: 3\r\nSld: 4\r\n");
         PrepareLearning(window, 3);
       },
       [](TestWindow& window) {
         return RunInFolderOf(
             window, {"correct", "@a.gif", "--output-folder", "@out", "--quiet", "--threads", "1"});
       }},
      {"trim of the learning data", [](TestWindow& window) { PrepareLearning(window, 1001); },
       [](TestWindow& window) {
         return TellOf(window, LoadLearningData(*window.files, window.app.mode_folder).status);
       }},
      {"save in the window",
       [](TestWindow& window) {
         window.app.open_mode = 2;
         window.app.opened_path = window.folder.Write("a.jpg", JpegWithExif());
         ASSERT_TRUE(FileOpen(window.form, false).ok());
         window.app.learning_record = "1\t2";
       },
       [](TestWindow& window) {
         BuildOutputNames(window.form.names, window.app.current_file, *window.files);
         return TellOf(window, FileSave(window.form, true));
       }},
      {"directory",
       [](TestWindow& window) {
         window.folder.Write("photos\\a.jpg", JpegWithExif());
         window.folder.Write("photos\\b.gif", kProgressiveJpeg);
         window.folder.Write("photos\\TWout\\a.jpg", "taken");
       },
       [](TestWindow& window) {
         return RunInFolderOf(window, {"directory", "@photos", "--threads", "1", "--quiet"});
       }},
      {"watch", PrepareWatch, RunWatch},
      {"watch, where renaming replaces", PrepareWatch, RunWatch, {.rename_replaces = true}},
      {"watch, each folder a volume", PrepareWatch, RunWatch, {.folders_are_volumes = true}},
      {"presets save", [](TestWindow& window) { window.folder.Write("a.twp", "the old preset"); },
       [](TestWindow& window) {
         return RunInFolderOf(window, {"presets", "save", "@a.twp", "--module", "5=on"});
       }},
      {"deadpixels add",
       [](TestWindow& window) {
         PrepareShots(window);
         PixelArray dark(20, 10);
         ASSERT_TRUE(window.codec->SaveBitmap(window.folder.File("new.bmp"), dark.view()).ok());
       },
       [](TestWindow& window) {
         return RunInFolderOf(window, {"deadpixels", "add", "--camera", "Default", "@new.bmp"});
       }},
      {"deadpixels assess", PrepareShots,
       [](TestWindow& window) {
         return RunInFolderOf(window, {"deadpixels", "assess", "--camera", "Default"});
       }},
      {"reset of dead pixels", PrepareShots,
       [](TestWindow& window) {
         return TellOf(window, DeleteDeadPixelData(window.app, *window.files));
       }},
      {"reset of learning", [](TestWindow& window) { PrepareLearning(window, 3); },
       [](TestWindow& window) {
         return RunInFolderOf(window, {"learning", "--reset"});
       }},
      {"last-used settings and power toys",
       [](TestWindow& window) {
         window.folder.Write("program\\TarnwellPocket.ini", "the old settings");
         window.folder.Write("program\\powertoys.ini", "the old toys");
         window.app.power_toys = true;
       },
       [](TestWindow& window) { return TellOf(window, INISave(window.form)); }},
      {"skin tones",
       [](TestWindow& window) { window.folder.Write("program\\skintones.ski", "the old tones"); },
       [](TestWindow& window) {
         return TellOf(window, SkinTonesSave(window.app, *window.files, window.modules.skin_tones));
       }},
      {"setup of the automated mode",
       [](TestWindow& window) { window.folder.Write("program\\autosetup.ini", "the old setup"); },
       [](TestWindow& window) {
         return TellOf(window, SaveAutoSetup(*window.files, window.app.program_folder,
                                             {"\\in\\", "\\out\\", "\\done\\"}));
       }},
      {"white balance, saved",
       [](TestWindow& window) {
         window.folder.Write(std::string(kModeFolder) + "White Balance.wbs", "the old balance");
       },
       [](TestWindow& window) {
         frmWhiteBalnc answer{.default_chosen = true};
         WhiteBalncOk(answer);
         SaveWhiteBalanceSetting(window.app, window.platform, window.modules, answer);
         return TellOf(window, Status::Ok());
       }},
      {"white balance, chosen",
       [](TestWindow& window) {
         window.folder.Write(std::string(kModeFolder) + "White Balance.wbs",
                             "Red: 1\r\nGrn: 2\r\nBlu: 3\r\nSld: 4\r\n");
       },
       [](TestWindow& window) {
         picMode_Click(window.app, window.platform, window.modules, WhiteBalanceMode::kModeDefault);
         return TellOf(window, Status::Ok());
       }},
  };
  return operations;
}

bool IsTemporary(const std::string& name) {
  return ProcessOfTemporary(name.substr(name.rfind('\\') + 1)).has_value();
}

std::string NamesOf(const Contents& contents) {
  std::string names;
  for (const auto& [name, bytes] : contents) {
    names += name + " (" + std::to_string(bytes.size()) + ") ";
  }
  return names;
}

std::optional<std::string> At(const Contents& contents, const std::string& name) {
  const auto found = contents.find(name);
  return found == contents.end() ? std::nullopt : std::optional(found->second);
}

bool EndsTheProcess(Fault fault) { return fault == Fault::kKilled || fault == Fault::kPowerCut; }

// An operation on a folder of its own, and what its files are before and after a run that nothing
// disturbs.
class Attempt {
 public:
  explicit Attempt(const Operation& operation) : operation_(operation) {
    operation.prepare(window_);
    before_ = ContentsOf(window_.folder);
  }

  const Contents& before() const { return before_; }
  Contents Now() const { return ContentsOf(window_.folder); }
  Told RunUndisturbed() { return operation_.run(window_); }

  // Gives the calls that it makes.
  std::vector<FileCall> RunWatched(Told& told) {
    const FaultyCalls calls(window_.folder.SystemPath().string(), Fault::kNone, 0,
                            operation_.limits);
    told = operation_.run(window_);
    return calls.calls();
  }

  // In a process of its own, whose call number `at` meets the fault. Gives what the user was told;
  // nothing when the fault ended the process.
  std::optional<Told> RunWithFault(Fault fault, std::size_t at) {
    int outcome = 0;
    const auto text = InOwnProcess(
        [&] {
          const FaultyCalls calls(window_.folder.SystemPath().string(), fault, static_cast<int>(at),
                                  operation_.limits);
          const Told told = operation_.run(window_);
          if (EndsTheProcess(fault)) FaultyCalls::EndProcess();
          return (told.ok ? "+" : "-") + told.text;
        },
        &outcome);
    const bool ended = WIFEXITED(outcome) && WEXITSTATUS(outcome) == kEndedByFault;
    EXPECT_TRUE(text || ended) << "crashed";
    if (!text) return std::nullopt;
    return Told{text->starts_with('+'), text->substr(1)};
  }

  std::string Place() const { return window_.files->Display(window_.folder.path()); }

 private:
  const Operation& operation_;
  TestWindow window_;
  Contents before_;
};

// What cannot even be looked at counts as missing, in the words of whoever looked.
bool NamesAReason(const std::string& text) {
  for (const char* reason :
       {"disk full", "no permission", "the disk reports an error", "no such"}) {
    if (text.find(reason) != std::string::npos) return true;
  }
  return false;
}

// Each file is as before or as after an undisturbed run, or is one that a later start deletes.
void ExpectOldOrNew(const Contents& before, const Contents& now, const Contents& after) {
  Contents all = before;
  all.insert(after.begin(), after.end());
  all.insert(now.begin(), now.end());
  for (const auto& [name, ignored] : all) {
    if (IsTemporary(name)) continue;
    const auto found = At(now, name);
    EXPECT_TRUE(found == At(before, name) || found == At(after, name))
        << name << " is neither old nor new: " << (found ? found->substr(0, 200) : "gone");
  }
}

bool IsPhoto(const std::string& name) { return name.ends_with(".jpg") || name.ends_with(".gif"); }

void ExpectNoPhotoLost(const Contents& before, const Contents& now) {
  for (const auto& [name, bytes] : before) {
    if (!IsPhoto(name)) continue;
    const bool is_there =
        std::any_of(now.begin(), now.end(), [&, &photo = bytes](const auto& file) {
          return !IsTemporary(file.first) && file.second == photo;
        });
    EXPECT_TRUE(is_there) << name << " is lost; there are " << NamesOf(now);
  }
}

void ExpectWhole(const Attempt& attempt, const Contents& after) {
  const Contents now = attempt.Now();
  ExpectOldOrNew(attempt.before(), now, after);
  ExpectNoPhotoLost(attempt.before(), now);
}

void ExpectTold(const Attempt& attempt, const Told& told, const Contents& after) {
  if (told.ok) {
    EXPECT_TRUE(attempt.Now() == after) << "nobody was told; there are " << NamesOf(attempt.Now());
    return;
  }
  EXPECT_TRUE(NamesAReason(told.text)) << "no reason is given";
  // A camera is known by its name; everything else is a file.
  EXPECT_TRUE(told.text.find(attempt.Place()) != std::string::npos ||
              told.text.starts_with("Default: "))
      << "no file is named";
  EXPECT_EQ(told.text.find(".tarnwell-"), std::string::npos) << "the user knows no such file";
}

// The program works there again, with nothing in its way but what is left of the attempt.
void ExpectALaterStartTidiesUp(Attempt& attempt) {
  const Contents left = attempt.Now();
  const Told told = attempt.RunUndisturbed();
  const bool was_done = told.text.find("already") != std::string::npos;
  EXPECT_TRUE(told.ok || was_done) << told.text;
  const Contents now = attempt.Now();
  for (const auto& [name, bytes] : now) EXPECT_FALSE(IsTemporary(name)) << name << " stays";
  ExpectNoPhotoLost(left, now);
}

const char* NameOf(Fault fault) {
  constexpr const char* kNames[] = {"none", "disk full", "no access", "killed", "power cut"};
  return kNames[static_cast<std::size_t>(fault)];
}

// `call` is number `at` of the operation; none is the time behind the last.
void TryFault(const Operation& operation, Fault fault, std::size_t at, const FileCall* call,
              const Contents& after) {
  Attempt attempt(operation);
  const std::optional<Told> told = attempt.RunWithFault(fault, at);
  SCOPED_TRACE(NameOf(fault) + std::string(" at call ") + std::to_string(at) + ", " +
               (call ? call->name : "the end") + "; the user reads: " + (told ? told->text : ""));
  EXPECT_EQ(told.has_value(), !EndsTheProcess(fault));
  ExpectWhole(attempt, after);
  if (told) ExpectTold(attempt, *told, after);
  ExpectALaterStartTidiesUp(attempt);
}

// Whether the fault is tried at this call. A call that only looks changes nothing for the sudden
// ends, and being refused lasts, so that it begins to matter with the next call that changes
// something. TARNWELL_FAULTS=all lets every look fail, too, which takes minutes; otherwise it is
// one in seven.
bool IsTried(Fault fault, const FileCall& call, std::size_t number) {
  if (call.changes) return true;
  static const bool all = std::getenv("TARNWELL_FAULTS") != nullptr;
  return fault == Fault::kDiskFull && (all || number % 7 == 0);
}

TEST(StorageFaultsTest, EveryFileIsOldOrNewAndTheUserIsTold) {
  constexpr Fault kFaults[] = {Fault::kDiskFull, Fault::kNoAccess, Fault::kKilled,
                               Fault::kPowerCut};
  std::map<Fault, int> tried;
  for (const Operation& operation : Operations()) {
    SCOPED_TRACE(operation.name);
    Attempt undisturbed(operation);
    Told told;
    const std::vector<FileCall> calls = undisturbed.RunWatched(told);
    ASSERT_TRUE(told.ok) << told.text;
    const Contents after = undisturbed.Now();
    for (const Fault fault : kFaults) {
      for (std::size_t at = 0; at < calls.size(); ++at) {
        if (!IsTried(fault, calls[at], at)) continue;
        TryFault(operation, fault, at, &calls[at], after);
        ++tried[fault];
      }
      if (!EndsTheProcess(fault)) continue;
      TryFault(operation, fault, calls.size(), nullptr, after);
      ++tried[fault];
    }
  }
  std::cout << "survived in " << Operations().size() << " operations:";
  for (const auto& [fault, count] : tried) std::cout << " " << count << " x " << NameOf(fault);
  std::cout << "\n";
}

}  // namespace
}  // namespace tarnwell
