#pragma once

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "console/console_host.h"
#include "console/program.h"
#include "platform/files.h"
#include "platform/picture_codec.h"
#include "platform/system.h"
#include "tests/support/pictures.h"
#include "tests/support/temp_folder.h"

namespace tarnwell {

using Words = std::vector<std::string>;

// Whole runs of the console program on real files, with a program folder of their own.
struct ConsoleDesk : testing::Test {
  TempFolder folder;
  std::unique_ptr<Files> files = MakeSystemFiles();
  std::unique_ptr<PictureCodec> codec = MakeSystemPictureCodec();
  std::ostringstream out, err;
  ConsoleHost host{out, err};

  // Words that start with "@" are names in the folder.
  int Run(Words words) {
    for (std::string& word : words) {
      if (word.starts_with('@')) word = folder.File(word.substr(1));
    }
    words.insert(words.end(), {"--program-folder", folder.File("program")});
    out.str("");
    err.str("");
    return RunProgram(words, host);
  }
  int Correct(Words words) {
    words.insert(words.begin(), "correct");
    return Run(words);
  }

  void WriteBitmap(const std::string& name, int width, int height, unsigned seed = 1) {
    const auto photo = NoisyPicture(width, height, seed);
    const Status saved = codec->SaveBitmap(folder.File(name), photo->view());
    ASSERT_TRUE(saved.ok()) << saved.message;
  }
  Picture Load(const std::string& name) {
    const Result<Picture> photo = codec->Load(folder.File(name));
    EXPECT_TRUE(photo.ok()) << photo.status.message;
    return photo.ok() ? *photo : std::make_shared<PixelArray>(1, 1);
  }

  // A file of the folder as the user reads of it.
  std::string Shown(const std::string& name) const { return files->Display(folder.File(name)); }
  bool ErrHas(const std::string& text) const { return err.str().find(text) != std::string::npos; }
  int ErrLines() const {
    const std::string text = err.str();
    return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
  }
};

}  // namespace tarnwell
