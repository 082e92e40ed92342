#pragma once

#include <string>

namespace tarnwell {

class RunningInstances;
struct Module1;
struct Platform;

// How the program goes on after the part of its start that runs before any window.
enum class StartUp {
  kLoadMainWindow,
  kEnd,      // nothing is left to do for this process, and there is nothing to say
  kRestart,  // first start: the executable is to be started again, without arguments
};

// The start-up procedure. Sets the folders and files of `app`, removes a left-over queue file, and
// hands the photo that the command line names to the queue, for the instance that is running
// already or for this one. Then the first-start check of the visual styles.
//
// `executable` is the full path of the program's file. `command_line` is everything behind the
// program's name, as typed.
StartUp StartProgram(Module1& app, Platform& platform, RunningInstances& instances,
                     const std::string& executable, const std::string& command_line);

}  // namespace tarnwell
