#include <cstdlib>
#include <gtest/gtest.h>
#include <optional>
#include <sched.h>
#include <string>

#include "platform/system.h"

namespace tarnwell {
namespace {

// Gives an environment variable a value (null: none) until the end of its life.
class Environment {
 public:
  Environment(const char* name, const char* value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    Set(value);
  }
  ~Environment() { Set(before_ ? before_->c_str() : nullptr); }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;

 private:
  void Set(const char* value) { value != nullptr ? setenv(name_, value, 1) : unsetenv(name_); }
  const char* name_;
  std::optional<std::string> before_;
};

TEST(PosixSystemTest, DataFolderFollowsTheEnvironment) {
  const struct {
    const char *data_home, *home, *wanted;
  } kCases[] = {
      {"/data", "/home/me", "\\data\\tarnwell-pocket\\"},
      {nullptr, "/home/me", "\\home\\me\\.local\\share\\tarnwell-pocket\\"},
      {"", "/home/me", "\\home\\me\\.local\\share\\tarnwell-pocket\\"},
      {"relative", "/home/me", "\\home\\me\\.local\\share\\tarnwell-pocket\\"},
      {nullptr, nullptr, ""},
  };
  for (const auto& c : kCases) {
    const Environment data_home("XDG_DATA_HOME", c.data_home);
    const Environment home("HOME", c.home);
    EXPECT_EQ(SystemDataFolder(), c.wanted);
  }
}

TEST(PosixSystemTest, ProcessorsAreThoseThatTheProgramMayUse) {
  cpu_set_t before, one;
  ASSERT_EQ(sched_getaffinity(0, sizeof before, &before), 0);
  EXPECT_EQ(SystemProcessorCount(), CPU_COUNT(&before));
  CPU_ZERO(&one);
  for (int cpu = 0; CPU_COUNT(&one) == 0; ++cpu) {
    if (CPU_ISSET(cpu, &before)) CPU_SET(cpu, &one);
  }
  ASSERT_EQ(sched_setaffinity(0, sizeof one, &one), 0);
  EXPECT_EQ(SystemProcessorCount(), 1);
  sched_setaffinity(0, sizeof before, &before);
}

}  // namespace
}  // namespace tarnwell
