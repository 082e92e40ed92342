#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace tarnwell {

// Runs `work` in a process of its own and gives the text that it returns; nothing when the process
// came to another end. `code` is told how it ended (waitpid).
inline std::optional<std::string> InOwnProcess(const std::function<std::string()>& work,
                                               int* code = nullptr) {
  int ends[2];
  if (pipe(ends) != 0) return std::nullopt;
  const pid_t child = fork();
  if (child == 0) {
    const std::string text = work();
    _exit(write(ends[1], text.data(), text.size()) == std::ssize(text) ? 0 : 1);
  }
  close(ends[1]);
  std::string text;
  char buffer[4096];
  for (ssize_t got; (got = read(ends[0], buffer, sizeof buffer)) > 0;) {
    text.append(buffer, static_cast<std::size_t>(got));
  }
  close(ends[0]);
  int outcome = -1;
  waitpid(child, &outcome, 0);
  if (code != nullptr) *code = outcome;
  if (!WIFEXITED(outcome) || WEXITSTATUS(outcome) != 0) return std::nullopt;
  return text;
}

// The same with the rights of nobody, whom `folder` and all in it belong to first: those who run
// the tests may have the rights to everything.
inline std::optional<std::string> AsNobody(const std::filesystem::path& folder,
                                           const std::function<std::string()>& work) {
  constexpr uid_t kNobody = 65534;
  if (geteuid() != 0) return InOwnProcess(work);
  const auto hand_over = [](const std::filesystem::path& path) {
    return chown(path.c_str(), kNobody, kNobody) == 0;
  };
  bool handed_over = hand_over(folder);
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    handed_over = hand_over(entry.path()) && handed_over;
  }
  if (!handed_over) return std::nullopt;
  return InOwnProcess([&] {
    return setgid(kNobody) == 0 && setuid(kNobody) == 0 ? work() : "cannot become nobody";
  });
}

}  // namespace tarnwell
