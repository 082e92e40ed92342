#include "deadpixels/dead_pixel_commands.h"

#include "deadpixels/add_test_shot.h"
#include "deadpixels/assess_test_shots.h"
#include "deadpixels/dead_pixel_files.h"
#include "engine/pass_progress.h"
#include "imaging/output_names.h"
#include "modules/frm_modules.h"
#include "platform/dialogs.h"
#include "platform/events.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/frm_progress.h"
#include "shell/long_work.h"
#include "shell/module1.h"
#include "shell/tell.h"

namespace tarnwell {
namespace {

constexpr char kAddTitle[] = "Add Test Shots";
constexpr char kAssessTitle[] = "Assess Test Shots";

// A report in lines, told in one box: a user who picked twenty files wants one answer.
class Report {
 public:
  void Add(const std::string& line) { text_ += (text_.empty() ? "" : "\n") + line; }
  void AddFailure(const std::string& line) {
    Add(line);
    failed_ = true;
  }
  void Tell(Form1& form, const char* title) const {
    if (text_.empty()) return;
    form.platform.dialogs.Tell({title, text_, failed_ ? Icon::kExclamation : Icon::kInformation});
  }

 private:
  std::string text_;
  bool failed_ = false;
};

// The resolutions that the user wants to be assessed; the only one without a question.
std::vector<Resolution> ChooseResolutions(const std::vector<Resolution>& resolutions,
                                          const CheckEntries& check) {
  if (resolutions.size() < 2) return resolutions;
  std::vector<std::string> names;
  for (const Resolution& resolution : resolutions) names.push_back(ResolutionName(resolution));
  const std::vector<bool> checked = check(
      "Multiple Resolutions Found", "Check the resolutions you would like to assess now:", names);
  std::vector<Resolution> chosen;
  for (std::size_t i = 0; i < checked.size() && i < resolutions.size(); ++i) {
    if (checked[i]) chosen.push_back(resolutions[i]);
  }
  return chosen;
}

void ReportAssessment(const Assessment& assessment, Report& report) {
  for (const std::string& line : assessment.left_out) report.AddFailure(line);
  if (assessment.status.ok()) {
    report.Add(AssessmentText(assessment));
  } else if (assessment.status.failure != Failure::kCancelled) {
    report.AddFailure(AssessmentText(assessment));
  }
}

// Draws the bar in steps that can be seen, and lets Cancel be heard.
class AssessmentProgress {
 public:
  explicit AssessmentProgress(Form1& form) : form_(form) {}
  bool GoOn(double share) {
    const auto percentage = static_cast<float>(100 * share);
    if (percentage < form_.progress.percentage || percentage >= form_.progress.percentage + 0.5f) {
      ShowPercentage(form_.progress, percentage);
    }
    form_.platform.events.Run();
    return !form_.app.cancel_requested;
  }

 private:
  Form1& form_;
};

}  // namespace

void AddTestShotsClick(Form1& form, const ChooseShots& choose) {
  Report report;
  int dark = 0;
  int light = 0;
  const Module1 app = form.app;
  for (const std::string& path : choose(kAddTitle)) {
    Result<AddedShot> added = AddedShot();
    form.progress.caption = ProgressCaption(SplitPhotoPath(path).file_name);
    const bool goes_on = DoBesideEvents(
        form, kCollectingText, [&](const GoOn&) { added = AddTestShot(app, form.platform, path); });
    if (!added.ok()) {
      report.AddFailure(added.status.message);
    } else {
      ++(added->kind == ShotKind::kDark ? dark : light);
    }
    if (!goes_on) break;
  }
  if (dark + light > 0) {
    report.Add("Added for the camera " + form.modules.camera + ": " + std::to_string(dark) +
               " dark, " + std::to_string(light) + " light.");
  }
  report.Tell(form, kAddTitle);
}

void AssessTestShotsClick(Form1& form, const CheckEntries& check) {
  const auto resolutions = ListResolutions(form.app, form.platform.files);
  if (!resolutions.ok()) return TellFailure(form, resolutions.status);
  Report report;
  if (resolutions->empty()) {
    report.AddFailure(
        "There are no test shots for this camera yet. Take some with the lens covered and some of "
        "a plain white sheet, and add them first.");
  }
  form.app.cancel_requested = false;
  for (const Resolution& resolution : ChooseResolutions(*resolutions, check)) {
    form.progress.caption = ProgressCaption(ResolutionName(resolution));
    const ProgressWindow window(form.progress, kAnalyzing);
    AssessmentProgress progress(form);
    ReportAssessment(AssessTestShots(form.app, form.platform, resolution,
                                     [&](double share) { return progress.GoOn(share); }),
                     report);
    if (form.app.cancel_requested) break;
  }
  report.Tell(form, kAssessTitle);
}

}  // namespace tarnwell
