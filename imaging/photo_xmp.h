#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarnwell {

// What of a photo's XMP data becomes untrue, or is not wanted, in the saved file.
struct XmpChanges {
  bool upright = false;  // the orientation was applied to the pixels
  int width = 0;         // of the saved picture
  int height = 0;
  bool extension_left_out = false;  // the part that did not fit into the first segment
  bool leave_place_out = false;
  bool turned = false;  // the picture was turned or mirrored: what lies where in it is untrue
};

// The packet with orientation and size as they are now, without thumbnails, without what belongs to
// companion pictures (high dynamic range, depth, motion), and of a turned picture without the
// places of faces and of the subject. Everything else is the same, byte for byte. Nothing when the
// packet is damaged.
std::optional<std::string> ChangedXmp(std::string_view packet, const XmpChanges& changes);

// Whether the packet speaks of companion pictures; nothing when it is damaged.
std::optional<bool> TellsOfCompanions(std::string_view packet);

// The same for the extension of a packet, which holds what is large. It cannot be changed, because
// the packet holds a checksum of it, so these look for the words alone.
bool ExtensionTellsOfCompanions(std::string_view extension);
bool ExtensionTellsPlace(std::string_view extension);
bool ExtensionTellsRegions(std::string_view extension);

}  // namespace tarnwell
