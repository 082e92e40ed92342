#pragma once

#include <functional>

#include "platform/status.h"

namespace tarnwell {

struct Form1;
struct Module1;
struct Platform;

// Tells the user why a command failed. Says nothing after a success, nor after a command that the
// user cancelled.
void TellFailure(const Module1& app, Platform& platform, const Status& status);
void TellFailure(Form1& form, const Status& status);

// Calls `command`, which may throw std::bad_alloc: then it ends there, and the user is told so.
void TellLackOfMemory(Form1& form, const std::function<void()>& command);

}  // namespace tarnwell
