#pragma once

namespace tarnwell {

class Clipboard;
class Clock;
class Dialogs;
class Files;
class JpegLibrary;
class PendingEvents;
class PictureCodec;

// Everything that the flows may ask of the system, wired by the host. The references outlive every
// flow that is handed this record.
struct Platform {
  Files& files;
  PictureCodec& codec;
  JpegLibrary& jpeg;
  Dialogs& dialogs;
  PendingEvents& events;
  Clock& clock;
  Clipboard& clipboard;
};

}  // namespace tarnwell
