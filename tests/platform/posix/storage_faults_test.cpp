// Everything that the program writes, with every file call that it makes for that failing in turn.
//
// Whatever fails, a file has its old content or its new one, whole; no photo is lost or replaced;
// what is left of the attempt is gone after the program has worked there again; and where something
// was not done, the user reads which file it was and why.

#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <map>

#include "automation/auto_setup.h"
#include "deadpixels/dead_pixel_reset.h"
#include "engine/learning_store.h"
#include "imaging/bmp_file.h"
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

using Prepare = std::function<void(TestWindow&)>;
using Run = std::function<Told(TestWindow&)>;

struct Operation {
  const char* name;
  Prepare prepare;
  Run run;
  Limits limits = {};
};

std::ostream& operator<<(std::ostream& out, const Operation& operation) {
  return out << operation.name;
}

// The folder holds these files; what ends in a backslash is a folder.
Prepare Holding(const Contents& files) {
  return [files](TestWindow& window) {
    for (const auto& [name, bytes] : files) {
      if (name.ends_with('\\')) {
        window.folder.MakeFolder(name.substr(0, name.size() - 1));
      } else {
        window.folder.Write(name, bytes);
      }
    }
  };
}

// A command of the console program.
Run Console(const std::vector<std::string>& words) {
  return [words](TestWindow& window) { return RunInFolderOf(window, words); };
}

// What gives a status, or tells the user itself.
Run Flow(const std::function<Status(TestWindow&)>& work) {
  return [work](TestWindow& window) { return TellOf(window, work(window)); };
}

std::string JpegWithExif() {
  std::string segment;
  AddSegment(segment, kFirstApp + 1, MakeExif({.width = 16, .height = 16, .place = true}));
  return WithSegments(kBaselineJpeg, segment);
}

std::string LearningOf(int records) {
  std::string text;
  for (int i = 0; i < records; ++i) {
    text += std::to_string(i);
    for (int field = 1; field < kRecordColumns; ++field) text += "\t0.5";
    text += "\r\n";
  }
  return text;
}

std::string DarkShot(int width, int height) {
  PixelArray dark(width, height);
  dark.mutable_view().at(width / 2, height / 2)[kRed] = 200;
  return EncodeBmp24(dark.view());
}

void OpenAndCorrect(TestWindow& window) {
  window.app.open_mode = 2;
  window.app.opened_path = window.folder.Write("a.jpg", JpegWithExif());
  ASSERT_TRUE(FileOpen(window.form, false).ok());
  window.app.learning_record = "1\t2";
}

Status SaveInTheWindow(TestWindow& window) {
  BuildOutputNames(window.form.names, window.app.current_file, *window.files);
  return FileSave(window.form, true);
}

Status SaveWhiteBalance(TestWindow& window) {
  frmWhiteBalnc answer{.default_chosen = true};
  WhiteBalncOk(answer);
  SaveWhiteBalanceSetting(window.app, window.platform, window.modules, answer);
  return Status::Ok();
}

Status ChooseWhiteBalance(TestWindow& window) {
  picMode_Click(window.app, window.platform, window.modules, WhiteBalanceMode::kModeDefault);
  return Status::Ok();
}

std::vector<Operation> Operations() {
  const std::string mode = "program\\Cameras\\Default\\Default\\";
  const std::string learning = mode + "Smart Data.tsd", white = mode + "White Balance.wbs";
  const std::string shots = "program\\Cameras\\Default\\~ Dead Pixels\\40x30\\";
  const std::string sound_white = "Red: 1\r\nGrn: 2\r\nBlu: 3\r\nSld: 4\r\n";
  const Contents watched = {{"in\\a.jpg", JpegWithExif()}, {"out\\", ""}, {"done\\", ""}};
  const Contents shot = {{shots + "Input1.BMP", DarkShot(40, 30)}, {shots + "map.bmp", "old map"}};
  const Run watch = Console({"watch", "--quiet", "--once", "--threads", "1", "--input", "@in",
                             "--output", "@out", "--processed", "@done"});
  return {
      {"CorrectForANewCameraAndMode", Holding({{"a.jpg", JpegWithExif()}, {"out\\", ""}}),
       Console({"correct", "@a.jpg", "--output-folder", "@out", "--quiet", "--camera", "Phone",
                "--mode", "Beach", "--threads", "1"})},
      {"CorrectToBeLearntBesideOthers",
       Holding({{"a.gif", kBaselineJpeg},
                {"out\\", ""},
                {white, sound_white},
                {learning, LearningOf(3)}}),
       Console({"correct", "@a.gif", "--output-folder", "@out", "--quiet", "--threads", "1"})},
      {"TrimOfTheLearningData", Holding({{learning, LearningOf(1001)}}),
       Flow([](TestWindow& window) {
         return LoadLearningData(*window.files, window.app.mode_folder).status;
       })},
      {"SaveInTheWindow", OpenAndCorrect, Flow(SaveInTheWindow)},
      {"Directory",
       Holding({{"photos\\a.jpg", JpegWithExif()},
                {"photos\\b.gif", kProgressiveJpeg},
                {"photos\\TWout\\a.jpg", "taken"}}),
       Console({"directory", "@photos", "--threads", "1", "--quiet"})},
      {"Watch", Holding(watched), watch},
      {"WatchWhereRenamingReplaces", Holding(watched), watch, {.rename_replaces = true}},
      {"WatchEachFolderAVolume", Holding(watched), watch, {.folders_are_volumes = true}},
      {"PresetsSave", Holding({{"a.twp", "the old preset"}}),
       Console({"presets", "save", "@a.twp", "--module", "5=on"})},
      {"DeadpixelsAdd",
       Holding({{shots + "Input1.BMP", DarkShot(40, 30)}, {"new.bmp", DarkShot(20, 10)}}),
       Console({"deadpixels", "add", "--camera", "Default", "@new.bmp"})},
      {"DeadpixelsAssess", Holding(shot), Console({"deadpixels", "assess", "--camera", "Default"})},
      {"ResetOfDeadPixels", Holding(shot),
       Flow([](TestWindow& window) { return DeleteDeadPixelData(window.app, *window.files); })},
      {"ResetOfLearning", Holding({{learning, LearningOf(3)}}), Console({"learning", "--reset"})},
      {"LastUsedSettingsAndPowerToys",
       Holding({{"program\\TarnwellPocket.ini", "the old settings"},
                {"program\\powertoys.ini", "the old toys"}}),
       Flow([](TestWindow& window) {
         window.app.power_toys = true;
         return INISave(window.form);
       })},
      {"SkinTones", Holding({{"program\\skintones.ski", "the old tones"}}),
       Flow([](TestWindow& window) {
         return SkinTonesSave(window.app, *window.files, window.modules.skin_tones);
       })},
      {"SetupOfTheAutomatedMode", Holding({{"program\\autosetup.ini", "the old setup"}}),
       Flow([](TestWindow& window) {
         return SaveAutoSetup(*window.files, window.app.program_folder,
                              {"\\in\\", "\\out\\", "\\done\\"});
       })},
      {"WhiteBalanceSaved", Holding({{white, "the old balance"}}), Flow(SaveWhiteBalance)},
      {"WhiteBalanceChosen", Holding({{white, sound_white}}), Flow(ChooseWhiteBalance)},
  };
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
// something. TARNWELL_FAULTS=all lets every look fail, too, and ends the program in every call in
// both ways, which takes minutes; otherwise it is one look in seven and one kill in four.
bool IsTried(Fault fault, const FileCall& call, std::size_t number) {
  static const bool all = std::getenv("TARNWELL_FAULTS") != nullptr;
  if (!call.changes) return fault == Fault::kDiskFull && (all || number % 7 == 0);
  return fault != Fault::kKilled || all || number % 4 == 0;
}

class StorageFaultsTest : public testing::TestWithParam<Operation> {};

TEST_P(StorageFaultsTest, EveryFileIsOldOrNewAndTheUserIsTold) {
  Attempt undisturbed(GetParam());
  Told told;
  const std::vector<FileCall> calls = undisturbed.RunWatched(told);
  ASSERT_TRUE(told.ok) << told.text;
  ASSERT_FALSE(calls.empty());
  const Contents after = undisturbed.Now();
  int tried = 0;
  const auto try_fault = [&](Fault fault, std::size_t at, const FileCall* call) {
    TryFault(GetParam(), fault, at, call, after);
    ++tried;
  };
  for (const Fault fault : {Fault::kDiskFull, Fault::kNoAccess, Fault::kKilled, Fault::kPowerCut}) {
    for (std::size_t at = 0; at < calls.size(); ++at) {
      if (IsTried(fault, calls[at], at)) try_fault(fault, at, &calls[at]);
    }
    if (EndsTheProcess(fault)) try_fault(fault, calls.size(), nullptr);
  }
  RecordProperty("faults", tried);
}

INSTANTIATE_TEST_SUITE_P(Of, StorageFaultsTest, testing::ValuesIn(Operations()),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace tarnwell
