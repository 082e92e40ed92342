#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "imaging/jpeg_encoder.h"
#include "imaging/jpeg_segments.h"

namespace tarnwell {

// Metadata segments as phones and programs write them, and JPEG files with them.

struct Piece {
  int app;  // -1 for a comment
  std::string content;
};

inline const std::string kXmpName("http://ns.adobe.com/xap/1.0/\0", 29);
inline const std::string kXmpExtension =
    std::string("http://ns.adobe.com/xmp/extension/\0", 35) + std::string(40, 'g');
inline const std::string kPhotoshopSignature("Photoshop 3.0\0", 14);

inline std::string Segments(const std::vector<Piece>& pieces) {
  std::string segments;
  for (const auto& [app, content] : pieces) {
    AddSegment(segments, app < 0 ? kCommentMarker : static_cast<std::uint8_t>(kFirstApp + app),
               content);
  }
  return segments;
}

inline std::string Jpeg(const std::vector<Piece>& pieces, const std::string& behind = {}) {
  const std::vector<std::uint8_t> pixels(16 * 16 * 3, 90);
  return WithSegments(EncodeJpeg({pixels.data(), 48, 16, 16}, 80, true), Segments(pieces)) + behind;
}

inline std::string Icc(int number, int count, const std::string& part) {
  return std::string("ICC_PROFILE\0", 12) + static_cast<char>(number) + static_cast<char>(count) +
         part;
}

inline std::string Profile(const std::string& colours = "RGB ") {
  std::string profile(300, 'p');
  profile.replace(0, 4, std::string("\0\0\1\x2C", 4));
  profile.replace(16, 4, colours);
  profile.replace(36, 4, "acsp");
  return profile;
}

inline std::string Packet(const std::string& attributes, const std::string& elements = {}) {
  return kXmpName +
         "<?xpacket begin='' id='W5M0'?><x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF>"
         "<rdf:Description xmlns:tiff=\"http://ns.adobe.com/tiff/1.0/\""
         " xmlns:exif=\"http://ns.adobe.com/exif/1.0/\"" +
         attributes + ">" + elements +
         "</rdf:Description></rdf:RDF></x:xmpmeta>\n   \n<?xpacket end=\"w\"?>";
}

inline std::string Resource(int number, const std::string& content) {
  std::string resource = "8BIM";
  resource += {static_cast<char>(number >> 8), static_cast<char>(number), '\0', '\0'};
  for (int shift = 24; shift >= 0; shift -= 8) {
    resource += static_cast<char>(content.size() >> shift);
  }
  resource += content;
  return content.size() % 2 == 1 ? resource + '\0' : resource;
}

inline std::string Field(int number, const std::string& value) {
  return std::string("\x1C\2") + static_cast<char>(number) + '\0' +
         static_cast<char>(value.size()) + value;
}

}  // namespace tarnwell
