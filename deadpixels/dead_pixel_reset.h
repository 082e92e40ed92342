#pragma once

#include "platform/status.h"

namespace tarnwell {

class Files;
struct Module1;
struct Platform;

// Deletes the dead pixel maps and sample images of the current camera: the files of every folder
// below "~ Dead Pixels", those folders, then the files directly in it. A link to a folder goes, and
// not what it leads to. What cannot be deleted stays and the rest goes; the first reason comes
// back.
Status DeleteDeadPixelData(const Module1& app, Files& files);

// "Reset Dead Pixel System": asks, then does that.
void ResetDeadPixelSystem(const Module1& app, Platform& platform);

}  // namespace tarnwell
