#include "engine/learning_store.h"

#include <algorithm>
#include <cstdint>

#include "modules/frm_modules.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/line_reader.h"
#include "shell/module1.h"

namespace tarnwell {
namespace {

// A file of a thousand records has less than 200 KB; one that cannot be trimmed may grow for years.
constexpr std::uint64_t kMostBytes = 64 << 20;

constexpr char kResetTitle[] = "Reset Learning System";

bool IsRecord(const StoredRecord& record) {
  return record.field_count == kRecordColumns &&
         std::all_of(record.fields.begin(), record.fields.end(),
                     [](const auto& field) { return field.has_value(); });
}

// The next line of a learning file; nothing at its end, which an empty line makes as well.
std::optional<std::string_view> NextRecordLine(LineReader& lines) {
  const auto line = lines.Next();
  return line && !line->empty() ? line : std::nullopt;
}

}  // namespace

LoadedLearning ParseLearningData(std::string_view text, const std::string& name) {
  LoadedLearning loaded;
  LineReader lines(text, name);
  while (const auto line = NextRecordLine(lines)) {
    loaded.data.records.push_back(ParseLearningRecord(*line));
    if (loaded.status.ok() && !IsRecord(loaded.data.records.back())) {
      loaded.status = lines.Damaged("21 numbers are expected here; the line is left out");
    }
  }
  return loaded;
}

std::optional<std::string> TrimmedLearningText(std::string_view text) {
  int count = 0;
  std::string kept;
  LineReader lines(text, "");
  while (const auto line = NextRecordLine(lines)) {
    if (++count > kTrimmedRecords) kept.append(*line).append("\r\n");
  }
  if (count <= kMostRecords) return std::nullopt;
  return kept;
}

LoadedLearning LoadLearningData(Files& files, const std::string& mode_folder) {
  const std::string path = mode_folder + kLearningFile;
  const Result<std::string> text = files.Read(path, kMostBytes);
  if (text.status.failure == Failure::kNotFound) return {};
  if (!text.ok()) return {.data = {}, .status = text.status};

  LoadedLearning loaded = ParseLearningData(*text, files.Display(path));
  if (loaded.data.records.size() <= kMostRecords) return loaded;
  // Counted again while nobody else can change the file.
  const Status trimmed = files.Update(path, TrimmedLearningText, kMostBytes);
  if (loaded.status.ok() && trimmed.failure != Failure::kNotFound) loaded.status = trimmed;
  return loaded;
}

Status AppendLearningRecord(Form1& form) {
  const Module1& app = form.app;
  if (!form.modules.IsChecked(kLearnFromSavedPhotos) || app.suppress_learning ||
      app.learning_record.empty()) {
    return Status::Ok();
  }
  return form.platform.files.Append(app.mode_folder + kLearningFile, app.learning_record + "\r\n");
}

Status DeleteLearningData(const Module1& app, Files& files) {
  const Status deleted = files.Delete(app.mode_folder + kLearningFile);
  return deleted.failure == Failure::kNotFound ? Status::Ok() : deleted;
}

void ResetLearningSystem(const Module1& app, Platform& platform) {
  const Answer answer =
      platform.dialogs.Ask({kResetTitle,
                            "This will permanently delete the learning system for "
                            "the current camera and mode, continue?",
                            Icon::kExclamation});
  if (answer != Answer::kYes) return;
  const Status deleted = DeleteLearningData(app, platform.files);
  platform.dialogs.Tell({kResetTitle,
                         deleted.ok()
                             ? "Learning system for current camera and mode has been reset."
                             : deleted.message,
                         deleted.ok() ? Icon::kInformation : Icon::kExclamation});
}

}  // namespace tarnwell
