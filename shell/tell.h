#pragma once

#include <functional>
#include <string>

#include "platform/status.h"

namespace tarnwell {

struct Form1;
struct Module1;
struct Platform;

// Whether the user ended the command, or has been told already why it could not go on.
bool IsKnownToUser(const Status& failure);

// Tells the user why a command failed. Says nothing after a success, nor what the user knows.
void TellFailure(const Module1& app, Platform& platform, const Status& status);
void TellFailure(Form1& form, const Status& status);

// Tells a sentence about the photo, under its name: to the user, or to whoever collects such
// sentences.
void TellNote(Form1& form, const std::string& text);

// Calls `command`, which may throw std::bad_alloc: then it ends there, and the user is told so.
void TellLackOfMemory(Form1& form, const std::function<void()>& command);

}  // namespace tarnwell
