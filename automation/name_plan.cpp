#include "automation/name_plan.h"

#include "automation/free_name.h"
#include "platform/files.h"
#include "shell/letter_case.h"

namespace tarnwell {

std::string NamePlan::Take(const std::string& path) {
  const std::lock_guard lock(mutex_);
  for (int number = 0;; ++number) {
    std::string name = NumberedName(path, number);
    if (files_.NameIsTaken(name)) continue;
    if (taken_.insert(FoldCase(name)).second) return name;
  }
}

}  // namespace tarnwell
