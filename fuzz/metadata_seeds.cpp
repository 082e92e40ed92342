#include "fuzz/seeds.h"
#include "tests/support/exif_builder.h"
#include "tests/support/segment_builder.h"
#include "tests/support/tiny_pictures.h"

namespace tarnwell {
namespace {

constexpr char kPlaceInXmp[] = " exif:GPSLatitude='50,1N' tiff:Orientation=\"6\" tiff:Make='A'";
constexpr char kGainMapInXmp[] =
    " xmlns:hdrgm=\"http://ns.adobe.com/hdr-gain-map/1.0/\" hdrgm:Version='1'";
constexpr char kElements[] =
    "<exif:UserComment>&lt;hello&gt;</exif:UserComment><!-- > --><![CDATA[<]]>"
    "<exif:PixelXDimension>40</exif:PixelXDimension>"
    "<xmp:Thumbnails xmlns:xmp='http://ns.adobe.com/xap/1.0/'><rdf:Alt/></xmp:Thumbnails>"
    "<C:Directory xmlns:C=\"http://ns.google.com/photos/1.0/container/\"><rdf:Seq>"
    "<rdf:li C:Semantic='GainMap'/></rdf:Seq></C:Directory>"
    "<R:Regions xmlns:R='http://www.metadataworkinggroup.com/schemas/regions/'><rdf:Bag/>"
    "</R:Regions>";

std::vector<std::string> ExifBlocks() {
  std::vector<std::string> blocks;
  for (const bool big_endian : {false, true}) {
    for (int orientation = 1; orientation <= 8; ++orientation) {
      const bool rich = orientation % 2 == 0;
      blocks.push_back(MakeExif({.big_endian = big_endian,
                                 .orientation = orientation,
                                 .width = 40,
                                 .height = 30,
                                 .place = rich,
                                 .subject = rich,
                                 .thumbnail = rich ? kGreyJpeg : std::string()}));
    }
  }
  return blocks;
}

std::vector<std::string> Packets() {
  return {Packet(kPlaceInXmp, kElements), Packet(kGainMapInXmp, kElements), Packet("")};
}

std::vector<std::string> PhotoshopBlocks() {
  const std::string iptc = Field(5, "Title") + Field(90, "City") + Field(7, "x");
  return {Resource(0x0404, iptc) + Resource(0x0425, "sixteen bytes   "),
          Resource(0x0404, iptc) + Resource(0x040C, kGreyJpeg.substr(0, 120)),
          Resource(0x0422, "EXIF copy") + Resource(0x0424, "<x/>")};
}

std::string PieceOfProfile(const std::string& part, int number, int count) {
  const std::string piece = {static_cast<char>(number), static_cast<char>(count)};
  return static_cast<char>(part.size() + 2) + piece + part;
}

// What a photo that has everything says, in two orders, as the target wants it: what stands behind
// the start of the file.
std::vector<std::string> Headers() {
  const std::string profile = Profile();
  std::vector<Piece> pieces = {{2, Icc(2, 2, profile.substr(150))},
                               {2, Icc(1, 2, profile.substr(0, 150))},
                               {2, std::string("MPF\0", 4) + "index"},
                               {5, "a camera's own data"},
                               {11, "JP credentials"},
                               {-1, "A comment\n"}};
  for (const std::string& packet : Packets()) pieces.push_back({1, packet});
  pieces.push_back({1, kXmpExtension + "<x exif:GPSLatitude='50'/>"});
  for (const std::string& block : PhotoshopBlocks()) {
    pieces.push_back({13, kPhotoshopSignature + block});
  }
  std::vector<std::string> headers;
  for (const std::string& exif : ExifBlocks()) {
    headers.push_back(Segments({{1, exif}, pieces[headers.size() % pieces.size()]}));
  }
  const std::string picture = Jpeg({}).substr(2);
  headers.push_back(Segments(pieces) + picture);
  headers.push_back(Segments({pieces.rbegin(), pieces.rend()}) + picture + Jpeg({}));
  return headers;
}

}  // namespace

void AddMetadataSeeds(Seeds& seeds) {
  const std::string profile = Profile();
  for (const std::string& exif : ExifBlocks()) {
    seeds["exif_block_fuzz"].push_back(exif.substr(6));  // the target puts the name in front
  }
  for (const std::string& packet : Packets()) {
    seeds["xmp_packet_fuzz"].push_back(packet.substr(kXmpName.size()));
  }
  seeds["photoshop_block_fuzz"] = PhotoshopBlocks();
  seeds["icc_profile_fuzz"] = {
      PieceOfProfile(profile.substr(0, 150), 1, 2) + PieceOfProfile(profile.substr(150), 2, 2),
      PieceOfProfile(profile.substr(200), 2, 2) + PieceOfProfile(profile.substr(0, 200), 1, 2)};
  seeds["photo_metadata_fuzz"] = Headers();
}

}  // namespace tarnwell
