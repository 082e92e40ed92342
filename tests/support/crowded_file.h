#pragma once

#include <algorithm>
#include <cstddef>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/files.h"
#include "platform/system.h"

namespace tarnwell {

// A file that many writers append lines to while its first lines are taken out again and again, as
// a trim does. Lines taken and lines left must be every line, each whole and once, and those of a
// writer in its order.
class CrowdedFile {
 public:
  static constexpr int kWriters = 8;
  static constexpr int kLines = 40;  // of each writer

  explicit CrowdedFile(std::string path) : path_(std::move(path)) {}

  // What a writer does, from a thread or a process of its own. False when an append fails.
  bool AppendAll(int writer) const {
    const std::unique_ptr<Files> files = MakeSystemFiles();
    for (int line = 0; line < kLines; ++line) {
      if (!files->Append(path_, LineOf(writer, line)).ok()) return false;
    }
    return true;
  }

  // Takes all lines that are there but the last few.
  void TakeFirstLines() {
    constexpr int kLeft = 3;
    const Status updated = files_->Update(path_, [this](std::string_view text) {
      std::vector<std::string> lines = SplitLines(text);
      const auto kept = lines.end() - std::min<std::ptrdiff_t>(kLeft, std::ssize(lines));
      taken_.insert(taken_.end(), lines.begin(), kept);
      std::string rest;
      for (auto line = kept; line != lines.end(); ++line) rest += *line;
      return std::optional<std::string>(rest);
    });
    EXPECT_TRUE(updated.ok() || updated.failure == Failure::kNotFound) << updated.message;
  }

  // Once every writer has ended.
  void ExpectEveryLineOnce() {
    const Result<std::string> left = files_->Read(path_);
    ASSERT_TRUE(left.ok()) << left.status.message;
    std::vector<std::string> lines = std::move(taken_);
    for (std::string& line : SplitLines(*left)) lines.push_back(std::move(line));
    ASSERT_EQ(lines.size(), std::size_t{kWriters * kLines});
    int next[kWriters] = {};
    for (const std::string& line : lines) {
      const int writer = line.front() - 'a';
      ASSERT_TRUE(writer >= 0 && writer < kWriters) << line;
      ASSERT_EQ(line, LineOf(writer, next[writer]++));
    }
  }

 private:
  static std::string LineOf(int writer, int line) {
    return std::string(150, static_cast<char>('a' + writer)) + std::to_string(line) + "\r\n";
  }

  // With their ends.
  static std::vector<std::string> SplitLines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
      const std::size_t length = std::min(text.find('\n'), text.size() - 1) + 1;
      lines.emplace_back(text.substr(0, length));
      text.remove_prefix(length);
    }
    return lines;
  }

  std::string path_;
  std::unique_ptr<Files> files_ = MakeSystemFiles();
  std::vector<std::string> taken_;
};

}  // namespace tarnwell
