// docs/bad-input.md, row by row: what is wrong, what the user reads then, what stays.

#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sys/mount.h>

#include "automation/auto_setup.h"
#include "imaging/jpeg_segments.h"
#include "imaging/load_photo.h"
#include "imaging/photo_size.h"
#include "modules/presets.h"
#include "modules/white_balance.h"
#include "shell/main_window.h"
#include "shell/settings_store.h"
#include "shell/start_state.h"
#include "shell/timers.h"
#include "shell/tool_button.h"
#include "tests/platform/posix/own_process.h"
#include "tests/support/bmp_builder.h"
#include "tests/support/folder_contents.h"
#include "tests/support/main_desk.h"
#include "tests/support/tiny_pictures.h"
#include "tests/support/told.h"

namespace tarnwell {
namespace {

constexpr char kMode[] = "program\\Cameras\\Default\\Default\\";
constexpr char kMaps[] = "program\\Cameras\\Default\\~ Dead Pixels\\16x16\\";

using Words = std::vector<std::string>;

struct Desk : MainDesk {
  Contents prepared;  // what the files were once everything was prepared

  void EndOfPreparation() { prepared = ContentsOf(folder); }

  std::string Run(const Words& words) {
    EndOfPreparation();
    return RunInFolderOf(*this, words).text;
  }

  // Files that were made, changed or deleted since.
  std::set<std::string> Touched() const {
    std::set<std::string> touched;
    const Contents now = ContentsOf(folder);
    for (const Contents* one : {&prepared, &now}) {
      for (const auto& [name, bytes] : *one) {
        const auto in_prepared = prepared.find(name);
        const auto in_now = now.find(name);
        const bool same = in_prepared != prepared.end() && in_now != now.end() &&
                          in_prepared->second == in_now->second;
        if (!same) touched.insert(name);
      }
    }
    return touched;
  }
};

// Prepares what is wrong, does what the row says, and gives what the user reads. Files that are
// made, changed or deleted on the way are noted in `touched`; every other stays as it is.
using Scenario = std::function<std::string(Desk&)>;

struct Row {
  Scenario scenario;
  std::set<std::string> touched = {};
};

std::string Correct(Desk& desk, Words words) {
  words.insert(words.begin(), {"correct", "@photo.jpg", "--no-learn", "--threads", "1"});
  return desk.Run(words);
}

// A photo whose corrected copy takes more than eight kilobytes.
void WriteNoise(Desk& desk, const std::string& name) {
  const auto photo = RandomPixels(300, 200);
  EXPECT_TRUE(desk.codec->SaveBitmap(desk.folder.File(name), photo->view()).ok());
}

// The photo has these bytes.
Scenario CorrectPhoto(const std::string& bytes) {
  return [bytes](Desk& desk) {
    desk.folder.Write("photo.jpg", bytes);
    return Correct(desk, {});
  };
}

// The photo is sound, the words are not.
Scenario CorrectWith(const Words& words) {
  return [words](Desk& desk) { return Correct(desk, words); };
}

// A file is damaged that the words name or the program finds by itself.
Scenario CorrectBeside(const std::string& name, const std::string& bytes, const Words& words = {}) {
  return [=](Desk& desk) {
    desk.folder.Write(name, bytes);
    return Correct(desk, words);
  };
}

// The program starts with this file in its folder.
Scenario StartWith(const std::string& name, const std::string& bytes) {
  return [=](Desk& desk) {
    desk.folder.Write("program\\" + name, bytes);
    desk.EndOfPreparation();
    LoadStartState(desk.form);
    return TellOf(desk, Status::Ok()).text;
  };
}

std::string PresetOf(Desk& desk) {
  return PresetText(desk.modules, {"0", "0", "0", "0"}, desk.app.title);
}

std::string GifScreen(int width, int height) {
  const std::string size = LittleEndian(width, 2) + LittleEndian(height, 2);
  return "GIF89a" + size + "\x80" + std::string(2 + 2 * 3, '\0') + "," + std::string(4, '\0') +
         size + std::string("\0\2\1\4\0;", 6);
}

std::string JpegWithCutExif() {
  std::string segment;
  AddSegment(segment, kFirstApp + 1, std::string("Exif\0\0MM\0*\0\0", 12));
  return WithSegments(kBaselineJpeg, segment);
}

// With the rights of nobody, and `name` open to nobody for what `rights` leave.
Scenario WithoutRights(const std::string& name, std::filesystem::perms rights,
                       const Scenario& scenario) {
  return [=](Desk& desk) {
    desk.EndOfPreparation();
    std::filesystem::permissions(desk.folder.SystemPath(name), rights);
    const auto text = AsNobody(desk.folder.SystemPath(), [&] { return scenario(desk); });
    std::filesystem::permissions(desk.folder.SystemPath(name), std::filesystem::perms(0755));
    return text.value_or("the process has crashed");
  };
}

std::string Watch(Desk& desk, const Words& folders) {
  return desk.Run({"watch", "--once", "--input", folders[0], "--output", folders[1], "--processed",
                   folders[2]});
}

// The file system of a photo's output folder has a few kilobytes, if one may be mounted here.
std::string FullDisk(Desk& desk) {
  const std::string small = desk.folder.SystemPath("small").string();
  desk.folder.MakeFolder("small");
  if (mount("none", small.c_str(), "tmpfs", 0, "size=8k") != 0) {
    std::cout << "no small disk can be mounted here: the full disk is not tried\n";
    desk.EndOfPreparation();
    return desk.files->Display(desk.folder.path()) + "/b.jpg: disk full";
  }
  WriteNoise(desk, "noise.bmp");
  std::string read;
  // The file's first page fits, its last does not; or not even its name does.
  for (const int bytes : {0, 4096, 8192}) {
    desk.folder.Write("small\\filler", std::string(bytes, 'f'));
    desk.EndOfPreparation();
    read = desk.Run({"correct", "@noise.bmp", "--output", "@small\\b.jpg", "--no-learn"});
    EXPECT_EQ(desk.Touched(), std::set<std::string>{}) << bytes << " bytes taken";
  }
  EXPECT_EQ(umount(small.c_str()), 0);
  desk.EndOfPreparation();
  return desk.files->Display(desk.folder.path()) + read.substr(read.find("/b.jpg"));
}

std::map<std::string, Row> Rows() {
  using std::filesystem::perms;
  const std::string cut = kBaselineJpeg.substr(0, 200);
  std::map<std::string, Row> rows;
  // Photos.
  rows["a JPEG file that breaks off"] = {CorrectPhoto(cut)};
  rows["a file that is no picture"] = {CorrectPhoto("Dear Sir,")};
  rows["a HEIC picture under a photo's name"] = {
      CorrectPhoto(std::string("\0\0\0\x18", 4) + "ftypheic" + std::string(4, '\0') + "mif1heic")};
  rows["an empty file"] = {CorrectPhoto("")};
  rows["a GIF file with a huge screen"] = {CorrectPhoto(GifScreen(65535, 65535))};
  rows["a bitmap of two thousand million rows"] = {
      CorrectPhoto(BuildBmp({.width = 1, .height = 2'000'000'000}))};
  rows["a photo that is not there"] = {[](Desk& desk) {
    return desk.Run({"correct", "@gone.jpg"});
  }};
  rows["a folder in the place of a photo"] = {[](Desk& desk) {
    desk.folder.MakeFolder("album.jpg");
    return desk.Run({"correct", "@album.jpg"});
  }};
  rows["a photo that you may not read"] = {WithoutRights("photo.jpg", perms(0), CorrectWith({}))};
  rows["a photo that needs more memory than there is"] = {[](Desk& desk) {
    const std::string bytes = BuildBmp({.width = 12'000, .height = 9'000});
    desk.EndOfPreparation();
    const std::uint64_t needed = MemoryToCorrect(bytes, desk.modules);
    return CheckMemory(needed, std::uint64_t{1} << 30, desk.files->Display("photo.bmp")).message;
  }};
  rows["a damaged metadata segment"] = {CorrectPhoto(JpegWithCutExif()), {"photoA.jpg"}};
  rows["a damaged photo in the window"] = {[=](Desk& desk) {
    desk.dialogs.open_files = {desk.folder.Write("photo.jpg", cut)};
    desk.EndOfPreparation();
    picToolBtn_Click(desk.window, kOpenButton);
    return TellOf(desk, Status::Ok()).text;
  }};
  // Names of the new file.
  rows["a name that is in use"] = {CorrectBeside("b.jpg", "mine", {"--output", "@b.jpg"})};
  rows["a name that a link to nowhere has"] = {[](Desk& desk) {
    std::filesystem::create_symlink("gone", desk.folder.SystemPath("b.jpg"));
    return Correct(desk, {"--output", "@b.jpg"});
  }};
  rows["the photo itself as the output"] = {CorrectWith({"--output", "@photo.jpg"})};
  rows["all letters in use"] = {[](Desk& desk) {
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
      desk.folder.Write(std::string("photo") + letter + ".jpg", "mine");
    }
    return Correct(desk, {});
  }};
  rows["an output folder that is not there"] = {CorrectWith({"--output-folder", "@gone"})};
  rows["an output folder without rights"] = {
      WithoutRights("", perms(0555), CorrectWith({"--output", "@b.jpg"}))};
  rows["a full disk"] = {FullDisk};
  // Words.
  rows["an unknown option"] = {CorrectWith({"--brighter"})};
  rows["a value out of range"] = {CorrectWith({"--slider", "3=500"})};
  rows["a word that is no number"] = {CorrectWith({"--slider", "3=much"})};
  rows["an empty name"] = {CorrectWith({"--output", ""})};
  rows["an option without its value"] = {CorrectWith({"--output", "--quiet"})};
  rows["an output name of another kind of picture"] = {CorrectWith({"--output", "b.png"})};
  rows["a value of a module that is off"] = {CorrectWith({"--slider", "3=20"}), {"photoA.jpg"}};
  rows["no photo"] = {[](Desk& desk) { return desk.Run({"correct"}); }};
  rows["a camera name that is no folder name"] = {CorrectWith({"--camera", ".."})};
  // Files that the words name.
  rows["a preset that is not there"] = {CorrectWith({"--preset", "@gone.twp"})};
  rows["a preset cut in half"] = {[](Desk& desk) {
    const std::string preset = PresetOf(desk);
    desk.folder.Write("look.twp", preset.substr(0, preset.find("\r\n91\r\n") + 2));
    return Correct(desk, {"--preset", "@look.twp"});
  }};
  rows["a white balance file with words for numbers"] = {
      CorrectBeside("wall.wbs", "Red: 192\r\nGrn: green\r\n", {"--white-file", "@wall.wbs"})};
  // Files that the program keeps.
  rows["a damaged white balance of the mode"] = {
      CorrectBeside(std::string(kMode) + "White Balance.wbs", "Red: 192\r\n")};
  rows["a damaged record among the learning data"] = {
      CorrectBeside(std::string(kMode) + "Smart Data.tsd", "1\t2\t3\r\n"), {"photoA.jpg"}};
  rows["learning data that you may not write"] = {
      WithoutRights("", perms(0755),
                    [](Desk& desk) {
                      desk.folder.Write(std::string(kMode) + "Smart Data.tsd", "");
                      std::filesystem::permissions(
                          desk.folder.SystemPath(std::string(kMode) + "Smart Data.tsd"),
                          perms(0444));
                      return desk.Run({"correct", "@photo.jpg", "--learn"});
                    }),
      {"photoA.jpg", std::string(kMode) + "Smart Data.tsd"}};
  rows["a damaged dead pixel map"] = {
      CorrectBeside(std::string(kMaps) + "MAP.BMP", "BM", {"--module", "8=on"}), {"photoA.jpg"}};
  rows["a dead pixel map of another size"] = {
      CorrectBeside(std::string(kMaps) + "MAP.BMP", BuildBmp({.data = std::string(4, '\0')}),
                    {"--module", "8=on", "--quiet"}),
      {"photoA.jpg"}};
  rows["last-used settings that break off"] = {
      StartWith("TarnwellPocket.ini", std::string(TARNWELL_VERSION) + "\r\n0\r\n0\r\n")};
  rows["damaged power toys"] = {StartWith("powertoys.ini", "on\r\n")};
  rows["skin tones without the last colour"] = {StartWith("skintones.ski", "Pale\r\n")};
  rows["a setup of the automated mode that breaks off"] = {[](Desk& desk) {
    desk.folder.Write("program\\autosetup.ini", "C:\\in\\\r\n");
    desk.EndOfPreparation();
    AutoFolders folders;
    return LoadAutoSetup(*desk.files, desk.app.program_folder, folders).message;
  }};
  rows["a photo in the queue that is gone"] = {
      [](Desk& desk) {
        desk.folder.Write("program\\queue.ini", desk.folder.File("gone.jpg") + "\r\n");
        desk.EndOfPreparation();
        Timer2_Tick(desk.window);
        return TellOf(desk, Status::Ok()).text;
      },
      {"program\\queue.ini"}};
  rows["settings that cannot be written"] = {WithoutRights(
      "program", perms(0555), [](Desk& desk) { return TellOf(desk, INISave(desk.form)).text; })};
  rows["a preset under a photo's name"] = {[](Desk& desk) {
    desk.folder.Write("photo.jpg", kBaselineJpeg);
    return desk.Run({"presets", "save", "photo.jpg"});
  }};
  rows["a preset that cannot be written"] = {WithoutRights("", perms(0555), [](Desk& desk) {
    return desk.Run({"presets", "save", "@look.twp"});
  })};
  // Folders.
  rows["a folder with a damaged photo"] = {[=](Desk& desk) {
                                             desk.folder.Write("album\\a.jpg", kBaselineJpeg);
                                             desk.folder.Write("album\\b.jpg", cut);
                                             return desk.Run({"directory", "@album"});
                                           },
                                           {"album\\TWout\\a.jpg"}};
  rows["a photo with a backslash in its name, among others"] = {
      [](Desk& desk) {
        desk.folder.Write("album\\b.jpg", kBaselineJpeg);
        std::ofstream(desk.folder.SystemPath("album") / "a\\c.jpg") << kBaselineJpeg;
        return desk.Run({"directory", "@album"});
      },
      {"album\\TWout\\b.jpg"}};
  rows["a folder that is not there"] = {[](Desk& desk) {
    return desk.Run({"directory", "@gone"});
  }};
  rows["a folder that takes no new folder"] = {[](Desk& desk) {
    desk.folder.Write("album\\a.jpg", kBaselineJpeg);
    return WithoutRights("album", perms(0555), [](Desk& rightless) {
      return rightless.Run({"directory", "@album"});
    })(desk);
  }};
  rows["a watched folder that is not there"] = {[](Desk& desk) {
    return Watch(desk, {"@gone", "@", "@"});
  }};
  rows["a watched folder that is its own output"] = {[](Desk& desk) {
    for (const char* name : {"in", "done"}) desk.folder.MakeFolder(name);
    return Watch(desk, {"@in", "@in", "@done"});
  }};
  rows["a watched folder without rights"] = {
      [](Desk& desk) {
        for (const char* name : {"in", "out", "done"}) desk.folder.MakeFolder(name);
        desk.folder.Write("in\\a.jpg", kBaselineJpeg);
        return WithoutRights("in", perms(0555), [](Desk& rightless) {
          return Watch(rightless, {"@in", "@out", "@done"});
        })(desk);
      },
      {"out\\a.jpg"}};
  rows["a processed folder without rights"] = {
      [](Desk& desk) {
        for (const char* name : {"in", "out", "done"}) desk.folder.MakeFolder(name);
        desk.folder.Write("in\\a.jpg", kBaselineJpeg);
        return WithoutRights("done", perms(0555), [](Desk& rightless) {
          return Watch(rightless, {"@in", "@out", "@done"});
        })(desk);
      },
      {"out\\a.jpg"}};
  return rows;
}

// "what is wrong" and "what you read" of each row of the document's tables.
std::map<std::string, std::string> DocumentedRows() {
  std::map<std::string, std::string> rows;
  std::ifstream document(TARNWELL_DOCS "/bad-input.md");
  for (std::string line; std::getline(document, line);) {
    if (!line.starts_with("| ") || line.starts_with("| What is wrong")) continue;
    const std::size_t first = line.find(" | ");
    const std::size_t second = line.find(" | ", first + 3);
    rows[line.substr(2, first - 2)] = line.substr(first + 3, second - first - 3);
  }
  return rows;
}

// The first line, which says what is wrong, with the folder left away. A command's usage and what
// became of other photos may follow.
std::string AsDocumented(Desk& desk, std::string text) {
  const std::string place = desk.files->Display(desk.folder.path()) + "/";
  text = text.substr(0, text.find_first_of("\r\n"));
  for (std::size_t at; (at = text.find(place)) != text.npos;) text.erase(at, place.size());
  return text.empty() ? "-" : "`" + text + "`";
}

TEST(BadInputTest, EveryRowOfTheDocumentIsTrue) {
  const std::map<std::string, std::string> documented = DocumentedRows();
  const std::map<std::string, Row> rows = Rows();
  for (const auto& [wrong, text] : documented) EXPECT_TRUE(rows.contains(wrong)) << wrong;
  for (const auto& [wrong, row] : rows) {
    SCOPED_TRACE(wrong);
    Desk desk;
    desk.app.open_mode = 2;
    desk.folder.Write("photo.jpg", kBaselineJpeg);
    desk.folder.Write(std::string(kMode) + "White Balance.wbs",
                      "Red: 192\r\nGrn: 192\r\nBlu: 192\r\nSld: 91\r\n");
    const std::string read = AsDocumented(desk, row.scenario(desk));
    const auto found = documented.find(wrong);
    EXPECT_EQ(read, found == documented.end() ? "no such row" : found->second);
    EXPECT_EQ(desk.Touched(), row.touched);
  }
}

}  // namespace
}  // namespace tarnwell
