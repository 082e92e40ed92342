#include "automation/correct_photo.h"

#include <new>
#include <utility>

#include "automation/name_plan.h"
#include "engine/adjust_photo.h"
#include "imaging/file_open.h"
#include "imaging/file_save.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/module1.h"

namespace tarnwell {
namespace {

// Neither a preview nor learning nor words to the user, for the time of one photo.
class Unattended {
 public:
  Unattended(Form1& form, std::vector<std::string>& notes)
      : form_(form),
        app_(form.app),
        auto_preview_(app_.auto_preview),
        suppress_learning_(app_.suppress_learning),
        collect_note_(std::move(form.collect_note)) {
    form.collect_note = [&notes](const std::string& note) { notes.push_back(note); };
    app_.auto_preview = false;
    app_.suppress_learning = true;  // the program must not learn from itself
    app_.photo_changed = false;
  }
  ~Unattended() {
    app_.auto_preview = auto_preview_;
    app_.suppress_learning = suppress_learning_;
    form_.collect_note = std::move(collect_note_);  // a copy takes memory
  }
  Unattended(const Unattended&) = delete;
  Unattended& operator=(const Unattended&) = delete;

 private:
  Form1& form_;
  Module1& app_;
  const bool auto_preview_;
  const bool suppress_learning_;
  std::function<void(const std::string&)> collect_note_;
};

Status Save(Form1& form, const PhotoTask& task, NamePlan& plan, std::string& saved_as) {
  for (std::string target = task.target;; target = plan.Take(task.wanted)) {
    form.names.output_path = target;
    Status saved = FileSave(form, /*notify=*/true);
    if (saved.failure == Failure::kNameTaken) continue;
    if (saved.ok()) saved_as = std::move(target);
    return saved;
  }
}

}  // namespace

CorrectedPhoto CorrectPhoto(Form1& form, const PhotoTask& task, NamePlan& plan,
                            const std::function<void(PhotoStep)>& step) {
  CorrectedPhoto result;
  const auto enter = [&](PhotoStep entered) {
    result.step = entered;
    step(entered);
  };
  const Unattended unattended(form, result.notes);
  try {
    enter(PhotoStep::kLoading);
    form.app.opened_path = task.photo;
    result.status = FileOpen(form, /*show_dialog=*/false);
    if (!result.status.ok()) return result;
    enter(PhotoStep::kCorrecting);
    result.status = AdjustPhoto(form, /*preview=*/false);
    if (!result.status.ok()) return result;
    enter(PhotoStep::kSaving);
    result.status = Save(form, task, plan, result.saved_as);
  } catch (const std::bad_alloc&) {
    result.status = Status::Error(Failure::kTooLarge,
                                  form.platform.files.Display(task.photo) + ": not enough memory");
  }
  return result;
}

}  // namespace tarnwell
