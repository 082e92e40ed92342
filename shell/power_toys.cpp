#include "shell/power_toys.h"

#include <string>

#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "shell/line_reader.h"
#include "shell/module1.h"
#include "shell/tell.h"

namespace tarnwell {
namespace {

std::string PowerToysPath(const Module1& app) { return app.program_folder + "powertoys.ini"; }

}  // namespace

Status LoadPowerToys(Module1& app, Files& files) {
  const std::string path = PowerToysPath(app);
  if (!files.FileExists(path)) return Status::Ok();
  app.power_toys = true;
  const Result<std::string> text = files.Read(path, kMostTextBytes);
  if (!text.ok()) return text.status;
  return ApplyPowerToysText(app, *text, files.Display(path));
}

Status ApplyPowerToysText(Module1& app, std::string_view text, const std::string& name) {
  LineReader lines(text, name);
  const Result<int> noise = NextInteger(lines);
  if (!noise.ok()) return noise.status;
  app.extended_noise = *noise != 0;
  const Result<int> source = NextInteger(lines);
  if (!source.ok()) return source.status;
  if (*source != 0 && *source != 1) return lines.Damaged("0 or 1 is expected here");
  app.analyze_full_source = *source == 1;
  return Status::Ok();
}

std::string PowerToysText(const Module1& app) {
  const std::string noise = app.extended_noise ? "-1" : "0";
  const std::string source = app.analyze_full_source ? "1" : "0";
  return noise + "\r\n" + source + "\r\n";
}

Status ToySave(const Module1& app, Files& files) {
  if (!app.power_toys) return Status::Ok();
  return files.Replace(PowerToysPath(app), PowerToysText(app));
}

void TogglePowerToys(Module1& app, Platform& platform) {
  app.power_toys = !app.power_toys;
  if (!app.power_toys) {
    const Status deleted = platform.files.Delete(PowerToysPath(app));
    if (deleted.failure != Failure::kNotFound) TellFailure(app, platform, deleted);
  }
  platform.dialogs.Tell({app.title,
                         std::string("Power toys menu will now ") + (app.power_toys ? "" : "not ") +
                             "be shown.\r\n\r\nClose and reopen software for changes to take "
                             "effect.",
                         Icon::kInformation});
}

void TurnPowerToysOn(Module1& app, Platform& platform) {
  app.power_toys = true;
  TellFailure(app, platform, ToySave(app, platform.files));
}

}  // namespace tarnwell
