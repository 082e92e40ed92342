#include "platform/first_use.h"

#include <mutex>
#include <set>

namespace tarnwell {

bool IsFirstUseOf(const std::string& folder) {
  static std::mutex mutex;
  static std::set<std::string> used;
  const std::lock_guard lock(mutex);
  return used.insert(folder).second;
}

}  // namespace tarnwell
