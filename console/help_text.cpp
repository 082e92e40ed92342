#include "console/help_text.h"

#include <iomanip>
#include <sstream>

#include "modules/frm_modules.h"

namespace tarnwell {
namespace {

void ListModules(std::ostream& out) {
  out << "Modules (--module N=on|off). A module's settings act only while it is on; those of 0, "
         "10\n"
         "and 11 act always.\n";
  for (int module = 0; module < kModuleCount; ++module) {
    const ModuleInfo& info = kModules[module];
    out << std::right << std::setw(4) << module << "  " << std::left << std::setw(24) << info.title
        << (info.open_at_first_start ? "on   " : "off  ") << info.purpose << "\n";
  }
}

void ListSliders(std::ostream& out) {
  const frmModules defaults = FirstStartPanel();
  out << "Sliders (--slider N=VALUE)\n"
      << "   N  Value                      From    To  Default  Module\n";
  for (int slider = 0; slider < kSliderCount; ++slider) {
    const SliderInfo& info = kSliders[slider];
    out << std::right << std::setw(4) << slider << "  " << std::left << std::setw(25) << info.name
        << std::right << std::setw(6) << info.lowest << std::setw(6) << info.highest << std::setw(9)
        << defaults.sliders[slider].text << "  " << info.module << " "
        << kModules[info.module].title << "\n";
  }
}

void ListChecks(std::ostream& out) {
  out << "Check options (--check N=0|1)\n";
  for (int check = 0; check < kCheckCount; ++check) {
    const CheckInfo& info = kChecks[check];
    out << std::right << std::setw(4) << check << "  " << std::left << std::setw(24) << info.caption
        << (info.default_checked ? "1    " : "0    ") << "module " << info.module << "\n";
  }
}

}  // namespace

std::string CommandsHelp() {
  return "Tarnwell Pocket corrects photos taken with phone cameras.\n"
         "\n"
         "Usage: tarnwell-pocket COMMAND WORDS...\n"
         "\n"
         "Commands:\n"
         "  correct PHOTO...   corrects photos and saves each as a new file\n"
         "  directory FOLDER   corrects every photo of a folder into its folder TWout\n"
         "  watch              corrects photos as they arrive in a folder\n"
         "  presets save FILE  keeps settings in a preset\n"
         "  cameras            lists cameras, modes and how much was learnt for them\n"
         "  learning           tells or resets what was learnt for a camera and mode\n"
         "  deadpixels         makes the maps of a camera's stuck pixels from test shots\n"
         "\n"
         "  COMMAND --help     everything that a command understands\n"
         "  --version          the version of this program\n";
}

std::string SettingsHelp() {
  std::ostringstream out;
  ListModules(out);
  out << "\n";
  ListSliders(out);
  out << "\n";
  ListChecks(out);
  out << "\nRotations (--rotation N, acts while module 9 is on)\n"
         "   0  a quarter turn to the left\n"
         "   1  a quarter turn to the right\n"
         "   2  a half turn\n"
         "   3  top and bottom exchanged\n"
         "   4  left and right exchanged\n";
  return out.str();
}

std::string DeadPixelsHelp() {
  return "How to make a map of stuck pixels\n"
         "  1. Take three or more dark shots with the lens covered, and as many light ones of\n"
         "     something plain and white that fills the picture, a sheet or the sky, out of "
         "focus.\n"
         "     One shot of a kind is enough to find the worst, several find more. Use the size\n"
         "     that you take photos in; every size has a map of its own.\n"
         "  2. Add them as they came from the camera, then assess them.\n"
         "  3. Correct photos with this camera and --module 8=on. Slider 9 is how far a pixel "
         "must\n"
         "     stand out: 50 takes what is surely stuck, less takes more, 100 the worst only.\n";
}

}  // namespace tarnwell
