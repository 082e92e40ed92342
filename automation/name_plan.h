#pragma once

#include <mutex>
#include <set>
#include <string>

namespace tarnwell {

class Files;

// Hands out free names to corrections that run side by side. A name is given once, whether its file
// has been written yet or not. As long as the names are asked for in the order of the photos, what
// each photo is called does not depend on how many run at once or which ends first.
class NamePlan {
 public:
  explicit NamePlan(Files& files) : files_(files) {}

  // `path` itself, or its first numbered form (see free_name.h) that no file has and that was not
  // handed out. Names that differ in letter case only count as one: some disks take them so. May be
  // called from any thread.
  std::string Take(const std::string& path);

 private:
  Files& files_;
  std::mutex mutex_;
  std::set<std::string> taken_;  // folded
};

}  // namespace tarnwell
