#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/learning_data.h"
#include "platform/status.h"

namespace tarnwell {

class Files;
struct Form1;
struct Module1;
struct Platform;

// The learning file of a camera and mode, in its mode folder: one record a line, the oldest first.
// An empty line ends what is read of it.
inline constexpr char kLearningFile[] = "Smart Data.tsd";

// A load that finds more records than kMostRecords cuts the oldest kTrimmedRecords off the file.
inline constexpr int kMostRecords = 1000;
inline constexpr int kTrimmedRecords = 100;

// What a learning file held.
struct LoadedLearning {
  LearningData data;
  // Why the file could not be read or trimmed, or the first line that is no record; that line
  // proposes nothing, the others do.
  Status status;
};

// Reads the learning file of `mode_folder` (with its backslash). A missing file is empty. A file
// that has grown too long is trimmed afterwards; a record that another program adds meanwhile is
// not lost.
LoadedLearning LoadLearningData(Files& files, const std::string& mode_folder);

// The part of it between text and records; `name` is the file in messages.
LoadedLearning ParseLearningData(std::string_view text, const std::string& name);

// The file's text after a trim; nothing when it is short enough.
std::optional<std::string> TrimmedLearningText(std::string_view text);

// Adds the last run's learning record to the learning file of the current camera and mode. Nothing
// is added, and the result is Ok, when "Learn from saved photos" is not checked, when learning is
// suppressed for this photo, or when the run left no record. Fails with the reason that the file
// could not be written.
Status AppendLearningRecord(Form1& form);

// Deletes the learning file of the current camera and mode, without a question. Ok when there is
// none.
Status DeleteLearningData(const Module1& app, Files& files);

// "Reset Learning System": asks, then deletes that file. Records in memory stay until the next
// load.
void ResetLearningSystem(const Module1& app, Platform& platform);

}  // namespace tarnwell
