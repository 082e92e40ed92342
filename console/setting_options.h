#pragma once

#include <string>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace tarnwell {

struct Settings;

// A check of a word that names something: what is wrong with it; empty when nothing is.
std::string IsNamed(const std::string& word);

// Words that several commands share. What they say is written when `app` parses; it must outlive
// that.
CLI::Option* AddProgramFolder(CLI::App& app, std::string& folder);
void AddSettings(CLI::App& app, Settings& settings);

// For commands whose corrections are learnt from, or kept with that wish.
void AddLearning(CLI::App& app, Settings& settings);

}  // namespace tarnwell
