#include "imaging/photo_xmp.h"

#include <algorithm>
#include <array>
#include <span>

#include "imaging/xmp_packet.h"

namespace tarnwell {
namespace {

constexpr std::string_view kTiff = "http://ns.adobe.com/tiff/1.0/";
constexpr std::string_view kExif = "http://ns.adobe.com/exif/1.0/";
constexpr std::string_view kBasic = "http://ns.adobe.com/xap/1.0/";
constexpr std::string_view kNote = "http://ns.adobe.com/xmp/note/";
constexpr std::string_view kCamera = "http://ns.google.com/photos/1.0/camera/";
constexpr std::string_view kDublinCore = "http://purl.org/dc/elements/1.1/";
constexpr std::string_view kPhotoshop = "http://ns.adobe.com/photoshop/1.0/";
constexpr std::string_view kIptcCore = "http://iptc.org/std/Iptc4xmpCore/1.0/xmlns/";
constexpr std::string_view kIptcExtension = "http://iptc.org/std/Iptc4xmpExt/2008-02-29/";

constexpr std::string_view kRegions = "http://www.metadataworkinggroup.com/schemas/regions/";
constexpr std::string_view kPeople = "http://ns.microsoft.com/photo/1.2/";

// Vocabularies that speak of nothing but companion pictures, by how their addresses begin.
constexpr std::array<std::string_view, 7> kCompanions = {
    "http://ns.adobe.com/hdr-gain-map/",          "http://ns.apple.com/HDRGainMap/",
    "http://ns.google.com/photos/1.0/container/", "http://ns.google.com/photos/1.0/depthmap/",
    "http://ns.google.com/photos/1.0/image/",     "http://ns.google.com/photos/1.0/focus/",
    "http://ns.google.com/photos/dd/1.0/",
};

bool IsOfCompanions(const XmpName& name) {
  const auto begins = [&](std::string_view address) {
    return name.vocabulary.starts_with(address);
  };
  if (std::any_of(kCompanions.begin(), kCompanions.end(), begins)) return true;
  return name.vocabulary == kCamera &&
         (name.local.starts_with("MotionPhoto") || name.local.starts_with("MicroVideo"));
}

// How names of coordinates begin, in small letters. Makers of cameras have vocabularies of their
// own for them, and many spellings.
constexpr std::array<std::string_view, 3> kCoordinates = {"gps", "latitude", "longitude"};

// Likewise for the places that IsPlace knows by their vocabularies.
constexpr std::array<std::string_view, 5> kPlaces = {"city", "state", "country", "location",
                                                     "coverage"};

// Whether `text` begins with one of `words`, which are in small letters, in any case. It is asked
// of every word of long hostile texts, and so takes no memory.
bool BeginsWithOneOf(std::span<const std::string_view> words, std::string_view text) {
  const auto same = [](char word, char letter) {
    const bool capital = letter >= 'A' && letter <= 'Z';
    return word == (capital ? letter - 'A' + 'a' : letter);
  };
  return std::any_of(words.begin(), words.end(), [&](std::string_view word) {
    return word.size() <= text.size() && std::equal(word.begin(), word.end(), text.begin(), same);
  });
}

bool IsPlace(const XmpName& name) {
  const auto is_one_of = [&](std::initializer_list<std::string_view> locals) {
    return std::find(locals.begin(), locals.end(), name.local) != locals.end();
  };
  if (BeginsWithOneOf(kCoordinates, name.local)) return true;
  if (name.vocabulary == kPhotoshop) return is_one_of({"City", "State", "Country"});
  if (name.vocabulary == kIptcCore) return is_one_of({"Location", "CountryCode"});
  if (name.vocabulary == kIptcExtension) return is_one_of({"LocationCreated", "LocationShown"});
  return name.vocabulary == kDublinCore && name.local == "coverage";
}

// What tells where something lies in the picture.
bool IsRegion(const XmpName& name) {
  if (name.vocabulary == kExif) {
    return name.local == "SubjectArea" || name.local == "SubjectLocation";
  }
  return (name.vocabulary == kRegions && name.local == "Regions") ||
         (name.vocabulary == kPeople && name.local == "RegionInfo") ||
         (name.vocabulary == kIptcExtension && name.local == "ImageRegion");
}

XmpFate FateOf(const XmpName& name, const XmpChanges& changes) {
  const XmpFate left_out{XmpFate::kLeftOut};
  const auto changed = [](int number) {
    return XmpFate{XmpFate::kChanged, std::to_string(number)};
  };
  if (IsOfCompanions(name)) return left_out;
  if (changes.leave_place_out && IsPlace(name)) return left_out;
  if (changes.turned && IsRegion(name)) return left_out;
  if (name.vocabulary == kBasic && name.local == "Thumbnails") return left_out;
  if (name.vocabulary == kNote && name.local == "HasExtendedXMP" && changes.extension_left_out) {
    return left_out;
  }
  if (name.vocabulary == kTiff) {
    if (name.local == "Orientation" && changes.upright) return changed(1);
    if (name.local == "ImageWidth") return changed(changes.width);
    if (name.local == "ImageLength") return changed(changes.height);
  }
  if (name.vocabulary == kExif) {
    if (name.local == "PixelXDimension") return changed(changes.width);
    if (name.local == "PixelYDimension") return changed(changes.height);
  }
  return {};
}

}  // namespace

std::optional<std::string> ChangedXmp(std::string_view packet, const XmpChanges& changes) {
  return EditXmp(packet, [&](const XmpName& name) { return FateOf(name, changes); });
}

std::optional<bool> TellsOfCompanions(std::string_view packet) {
  bool tells = false;
  const auto edited = EditXmp(packet, [&](const XmpName& name) {
    tells = tells || (IsOfCompanions(name) && !name.local.empty());
    return XmpFate();
  });
  if (!edited) return std::nullopt;
  return tells;
}

bool ExtensionTellsOfCompanions(std::string_view extension) {
  return std::any_of(kCompanions.begin(), kCompanions.end(), [&](std::string_view address) {
    return extension.find(address) != extension.npos;
  });
}

bool ExtensionTellsPlace(std::string_view extension) {
  for (auto at = extension.find(':'); at != extension.npos; at = extension.find(':', at + 1)) {
    const std::string_view name = extension.substr(at + 1);
    if (BeginsWithOneOf(kCoordinates, name) || BeginsWithOneOf(kPlaces, name)) return true;
  }
  return false;
}

bool ExtensionTellsRegions(std::string_view extension) {
  return extension.find(kRegions) != extension.npos || extension.find(kPeople) != extension.npos;
}

}  // namespace tarnwell
