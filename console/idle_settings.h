#pragma once

#include <string>
#include <vector>

namespace tarnwell {

struct frmModules;
struct Settings;

// A sentence for each setting that does nothing because its module or its check option is off in
// `panel`, where all of them are in force.
std::vector<std::string> IdleSettings(const Settings& settings, const frmModules& panel);

}  // namespace tarnwell
