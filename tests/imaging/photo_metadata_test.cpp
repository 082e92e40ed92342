#include "imaging/photo_metadata.h"

#include <gtest/gtest.h>
#include <optional>

#include "imaging/exif_block.h"
#include "imaging/icc_profile.h"
#include "imaging/metadata_to_save.h"
#include "imaging/read_metadata.h"
#include "tests/support/exif_builder.h"
#include "tests/support/pictures.h"
#include "tests/support/segment_builder.h"

namespace tarnwell {
namespace {

// What is saved with a picture of 40 x 30 of a photo with these segments.
std::string Saved(const SharedMetadata& metadata, const SaveWishes& wishes = {}) {
  return MetadataFor(*metadata, PixelArray(40, 30).view(), wishes).segments;
}

TEST(PhotoMetadata, WhatStaysTrueStaysByteForByte) {
  const std::string profile = Profile();
  const std::vector<Piece> pieces = {
      {0, std::string("JFIF\0\1\1\1\0\x48\0\x48\0\0", 14)},  // 72 pixels an inch
      {1, MakeExif({.width = 40, .height = 30, .place = true})},
      {1, Packet(" tiff:Make='A'", "<exif:UserComment>&lt;hello&gt;</exif:UserComment><!-- > -->")},
      {2, Icc(2, 2, profile.substr(150))},  // out of order is allowed
      {2, Icc(1, 2, profile.substr(0, 150))},
      {5, "a camera's own data"},
      {13, kPhotoshopSignature + Resource(0x0404, Field(5, "Title") + Field(90, "City")) +
               Resource(0x0425, "sixteen bytes   ")},
      {-1, "A comment\n"},
  };
  const SharedMetadata metadata = ReadPhotoMetadata(Jpeg(pieces));
  EXPECT_EQ(metadata->colour_profile, profile);
  EXPECT_TRUE(metadata->notes.empty()) << metadata->notes[0];
  EXPECT_EQ(Saved(metadata), Segments(pieces));
  EXPECT_EQ(
      WhatPixelsAloneLose(*metadata),
      "EXIF data, XMP data, IPTC data, the colour profile, comments and the camera's own data");
  EXPECT_EQ(ReadPhotoMetadata("BM no JPEG file"), nullptr);
}

// Square pixels, in one of the three units that there are.
TEST(PhotoMetadata, ADensityIsKeptWhereItSaysSomething) {
  const struct {
    std::string density;  // unit, across, down
    bool kept;
  } kRows[] = {
      {{2, 0, 28, 0, 28}, true},   {{0, 0, 2, 0, 2}, true},  {{0, 0, 1, 0, 1}, false},
      {{1, 0, 72, 0, 96}, false},  {{1, 0, 0, 0, 0}, false}, {{3, 0, 72, 0, 72}, false},
      {{-1, 0, 72, 0, 72}, false},
  };
  for (const auto& row : kRows) {
    const Piece piece = {0, std::string("JFIF\0\1\1", 7) + row.density + std::string(2, '\0')};
    EXPECT_EQ(Saved(ReadPhotoMetadata(Jpeg({piece}))), row.kept ? Segments({piece}) : "")
        << testing::PrintToString(row.density);
  }
}

// A resource may go on in the next segment, and changed ones are parted anew.
TEST(PhotoMetadata, LongPhotoshopBlocksArePartedWhereASegmentIsFull) {
  const auto pieces_of = [](const std::string& title_and_place, std::size_t room) {
    const std::string whole = Resource(0x03ED, std::string(50000, 'a')) +
                              Resource(0x0404, title_and_place) +
                              Resource(0x03EE, std::string(50001, 'b')) + std::string(3, '\0');
    std::vector<Piece> pieces;
    for (std::size_t at = 0; at < whole.size(); at += room) {
      pieces.push_back({13, kPhotoshopSignature + whole.substr(at, room)});
    }
    return pieces;
  };
  const SharedMetadata metadata =
      ReadPhotoMetadata(Jpeg(pieces_of(Field(5, "Title") + Field(90, "Bonn"), 50010)));
  EXPECT_TRUE(Saved(metadata, {.leave_place_out = true}) ==
              Segments(pieces_of(Field(5, "Title"), 65533 - kPhotoshopSignature.size())));
}

TEST(PhotoMetadata, LeavesThePlaceOutEverywhere) {
  const SharedMetadata metadata = ReadPhotoMetadata(
      Jpeg({{1, MakeExif({.place = true})},
            {1, Packet(" exif:GPSLatitude='50,1N' tiff:Make='A'",
                       "<exif:GPSAreaInformation><rdf:Bag/></exif:GPSAreaInformation>")},
            {1, kXmpExtension + "<x exif:GPSLatitude='50'/>"},
            {6, "where the drone flew"},
            {13, kPhotoshopSignature +
                     Resource(0x0404, Field(5, "Title") + Field(90, "Bonn") + Field(7, "x")) +
                     Resource(0x0422, "EXIF copy")}}));
  EXPECT_EQ(
      Saved(metadata, {.leave_place_out = true}),
      Segments({{1,
                 [&] {
                   auto exif = ExifBlock::Parse(MakeExif({.place = true}));
                   EXPECT_TRUE(exif->LeavePlaceOut());
                   exif->SetPixelSize(40, 30);
                   return exif->content();
                 }()},
                {1, Packet(" tiff:Make='A'", "")},
                {13, kPhotoshopSignature + Resource(0x0404, Field(5, "Title") + Field(7, "x"))}}));
}

// Cameras tell it in vocabularies of their own, and in their own spelling.
TEST(PhotoMetadata, LeavesThePlaceOutOfEveryVocabularyOfXmp) {
  const std::string drone = " xmlns:drone='http://ns.example.com/drone/1.0/'";
  const std::string height = " drone:AbsoluteAltitude='80' drone:CapGps='no'";
  const auto packet = [&](const std::string& place, const std::string& element) {
    return Packet(drone + place + height, element + "<drone:Model>A</drone:Model>");
  };
  const SharedMetadata metadata = ReadPhotoMetadata(
      Jpeg({{1, packet(" drone:GpsLatitude='50.1' drone:GpsLongtitude='8.2' drone:Latitude=\"50\"",
                       "<drone:longitude>8</drone:longitude><unknown:GPSXYAccuracy>1"
                       "</unknown:GPSXYAccuracy><drone:LATITUDE/>")}}));
  EXPECT_EQ(Saved(metadata, {.leave_place_out = true}), Segments({{1, packet("", "")}}));

  const struct {
    const char* extension;
    bool tells;
  } kExtensions[] = {
      {"<x drone:GpsLatitude='50'/>", true},
      {"<x drone:latitude='50'/>", true},
      {"<drone:LONGITUDE>8", true},
      {"<dc:coverage>Bonn", true},
      {"<photoshop:City>Bonn", true},
      {"<x drone:CapGps='no' id='a:gp'/>latitude", false},
      {"<crs:Long>gps:", false},
  };
  for (const auto& [extension, tells] : kExtensions) {
    const std::vector<Piece> pieces = {{1, kXmpExtension + extension}};
    const SharedMetadata photo = ReadPhotoMetadata(Jpeg(pieces));
    EXPECT_EQ(Saved(photo, {.leave_place_out = true}), tells ? "" : Segments(pieces)) << extension;
  }
}

TEST(PhotoMetadata, WhatTheChangeMakesUntrueIsPutRight) {
  const std::string preview = "\xFF\xD8\xFF\xE0 a preview";
  const SharedMetadata metadata =
      ReadPhotoMetadata(Jpeg({{1, MakeExif({.orientation = 8, .width = 30, .height = 40})},
                              {1, Packet(" tiff:Orientation=\"8\" exif:PixelXDimension='30'",
                                         "<tiff:ImageLength>40</tiff:ImageLength>")},
                              {4, "first half " + preview},
                              {4, "second half"},
                              {13, kPhotoshopSignature + Resource(0x040C, preview) +
                                       Resource(0x0404, Field(5, "Title"))}}));
  EXPECT_EQ(metadata->orientation, 8);
  EXPECT_EQ(Saved(metadata),
            Segments({{1, MakeExif({.orientation = 1, .width = 40, .height = 30})},
                      {1, Packet(" tiff:Orientation=\"1\" exif:PixelXDimension='40'",
                                 "<tiff:ImageLength>30</tiff:ImageLength>")},
                      {13, kPhotoshopSignature + Resource(0x0404, Field(5, "Title"))}}));
}

// Turned by a run, by the orientation that the file tells, or not at all.
TEST(PhotoMetadata, WhatLiesWhereIsLeftOutOfATurnedPicture) {
  const std::string regions =
      "<R:Regions "
      "xmlns:R=\"http://www.metadataworkinggroup.com/schemas/regions/\">face</R:Regions>";
  const struct {
    int orientation;
    bool by_run;
    bool kept;
  } kCases[] = {{1, false, true}, {1, true, false}, {6, false, false}};
  for (const auto& [orientation, by_run, kept] : kCases) {
    const auto photo = [&](int told, bool with_subject) {
      return std::vector<Piece>{
          {1, MakeExif({.orientation = told, .width = 40, .height = 30, .subject = with_subject})},
          {1, Packet(with_subject ? " exif:SubjectArea='3'" : "", with_subject ? regions : "")}};
    };
    const SharedMetadata metadata = ReadPhotoMetadata(Jpeg(photo(orientation, true)));
    const std::string saved = Saved(metadata, {.turned = by_run});
    if (kept) {
      EXPECT_EQ(saved, Segments(photo(1, true)));
      continue;
    }
    EXPECT_EQ(saved.find("face"), saved.npos);
    EXPECT_EQ(saved.find("SubjectArea"), saved.npos);
    EXPECT_EQ(saved.find(kSubjectArea), saved.npos);
    EXPECT_NE(saved.find(kMakerNote), saved.npos) << "stays where it was";
    const SharedMetadata again = ReadPhotoMetadata(Jpeg({}).insert(2, saved));
    EXPECT_TRUE(again->notes.empty());
    EXPECT_EQ(again->orientation, 1);
  }
}

TEST(PhotoMetadata, CompanionPicturesAndTheirTagsAreLeftOutAndTold) {
  const std::string gain =
      " xmlns:hdrgm=\"http://ns.adobe.com/hdr-gain-map/1.0/\" hdrgm:Version='1'";
  const std::string list =
      "<C:Directory xmlns:C=\"http://ns.google.com/photos/1.0/container/\"><rdf:Seq><rdf:li "
      "C:Semantic='GainMap'/></rdf:Seq></C:Directory>";
  struct Case {
    std::string jpeg;
    std::string saved;
  };
  const Case cases[] = {
      {Jpeg({{1, Packet(gain + " tiff:Make='A'", list + "<tiff:Model>B</tiff:Model>")}}),
       Segments({{1, Packet(" tiff:Make='A'", "<tiff:Model>B</tiff:Model>")}})},
      {Jpeg({{1, Packet(" xmlns:N=\"http://ns.adobe.com/xmp/note/\" N:HasExtendedXMP='g'")},
             {1, kXmpExtension + "<x xmlns:D='http://ns.google.com/photos/1.0/depthmap/'/>"}}),
       Segments({{1, Packet(" xmlns:N=\"http://ns.adobe.com/xmp/note/\"")}})},
      {Jpeg({{2, std::string("MPF\0", 4) + "index"}}), ""},
      {Jpeg({}, Jpeg({{1, MakeExif({.orientation = 6})}})), ""},
      {Jpeg({}, std::string(5000, 'x') + std::string("\0\0\0\x18", 4) + "ftypmp42"), ""},
      {Jpeg({}, std::string(2000, 'x') + "SEFT"), ""},
  };
  for (const Case& c : cases) {
    const SharedMetadata metadata = ReadPhotoMetadata(c.jpeg);
    ASSERT_EQ(metadata->notes.size(), 1u);
    EXPECT_TRUE(metadata->notes[0].starts_with("Pictures behind the main one"))
        << metadata->notes[0];
    EXPECT_EQ(metadata->orientation, 1) << "the companion's own tags do not count";
    EXPECT_EQ(Saved(metadata), c.saved);
  }
}

TEST(PhotoMetadata, DamagedSegmentsAreDroppedAndTold) {
  const std::string profile = Profile();
  struct Case {
    std::vector<Piece> pieces;
    const char* note;
    int orientation = 1;
  };
  // Cut inside the text of the maker, which is told behind the orientation.
  const std::string cut = MakeExif({.big_endian = true, .orientation = 6}).substr(0, 60);
  const Case cases[] = {
      {{{1, std::string("Exif\0\0II*\0\xFF\xFF\xFF\x7F", 14)}},
       "The EXIF data is damaged and is left out."},
      {{{1, cut}}, "The EXIF data is damaged and is left out.", 6},
      {{{1, cut.substr(0, 20)}}, "The EXIF data is damaged and is left out."},
      {{{1, Packet("", "<tiff:Make>")}}, "The XMP data is damaged and is left out."},
      {{{1, Packet(" tiff:Make='A'tiff:Model='B'")}}, "The XMP data is damaged and is left out."},
      {{{1, Packet("", "<!DOCTYPE a [<!ENTITY b \"bbbb\">]>")}},
       "The XMP data is damaged and is left out."},
      {{{2, Icc(1, 2, profile.substr(0, 150))}},
       "The colour profile is damaged or not complete and is left out."},
      {{{2, Icc(1, 2, profile)}, {2, Icc(1, 2, profile)}},
       "The colour profile is damaged or not complete and is left out."},
      {{{2, Icc(1, 1, profile.substr(0, 200))}},
       "The colour profile is damaged or not complete and is left out."},
      {{{2, Icc(1, 1, Profile("GRAY"))}},
       "The colour profile is for grey pictures or for inks and is left out."},
      {{{13, kPhotoshopSignature + Resource(0x0404, Field(5, "Title")).substr(0, 20)}},
       "The IPTC data is damaged and is left out."},
      {{{13, kPhotoshopSignature + Resource(0x0404, Field(5, "Title")) + std::string("\0x", 2)}},
       "The IPTC data is damaged and is left out."},
  };
  for (const Case& c : cases) {
    std::vector<Piece> pieces = c.pieces;
    pieces.push_back({-1, "stays"});
    const SharedMetadata metadata = ReadPhotoMetadata(Jpeg(pieces));
    EXPECT_EQ(metadata->notes, std::vector<std::string>{c.note});
    EXPECT_EQ(Saved(metadata), Segments({{-1, "stays"}})) << c.note;
    EXPECT_EQ(metadata->orientation, c.orientation) << c.note;
  }
}

// The orientation is that of the kept block, where that tells it.
TEST(PhotoMetadata, TheFirstSoundBlockOfExifDataIsKept) {
  const auto sound = [](int orientation) { return MakeExif({.orientation = orientation}); };
  const std::string cut = MakeExif({.big_endian = true, .orientation = 6}).substr(0, 60);
  std::string silent = sound(1);
  silent[16] = '\x13';  // no longer the tag of the orientation
  const std::string damaged = "The damaged part of the EXIF data cannot be kept and is left out.";
  const std::string second = "The second block of EXIF data cannot be kept and is left out.";
  const struct {
    std::vector<std::string> blocks;
    std::optional<std::size_t> kept;
    int orientation;
    std::vector<std::string> notes;
  } kCases[] = {
      {{cut, sound(3)}, 1, 3, {damaged}},
      {{cut, sound(1)}, 1, 1, {damaged}},
      {{cut, silent}, 1, 6, {damaged}},
      {{cut, cut, sound(8), sound(5)}, 2, 8, {damaged, second}},
      {{sound(3), cut}, 0, 3, {second}},
      {{sound(3), sound(6)}, 0, 3, {second}},
      {{cut, cut}, std::nullopt, 6, {"The EXIF data is damaged and is left out."}},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(&c - kCases);
    std::vector<Piece> pieces;
    for (const std::string& block : c.blocks) pieces.push_back({1, block});
    const SharedMetadata metadata = ReadPhotoMetadata(Jpeg(pieces));
    EXPECT_EQ(metadata->notes, c.notes);
    EXPECT_EQ(metadata->orientation, c.orientation);
    EXPECT_EQ(Saved(metadata),
              c.kept ? Saved(ReadPhotoMetadata(Jpeg({pieces[*c.kept]}))) : std::string());
  }
}

// Shapes of files that cost a careless reader the square of their length. Nothing is timed here: a
// square of these would run into the time limit of the tests.
TEST(PhotoMetadata, HugeHeadersTakeNoLongerThanTheyAreLong) {
  std::vector<Piece> many(65000, {13, kPhotoshopSignature + Resource(0x0404, Field(5, "Title"))});
  many.resize(129999, {1, kXmpExtension + std::string(60, ' ') + ":GPS"});
  std::string colons;
  while (colons.size() < 60000) colons += ":lat";
  many.push_back({1, kXmpExtension + colons});
  const SharedMetadata crowd = ReadPhotoMetadata(Jpeg(many));
  EXPECT_EQ(crowd->segments.size(), 130000u);
  EXPECT_FALSE(Saved(crowd, {.leave_place_out = true}).empty());

  std::string nested;
  for (int i = 0; i < 6000; ++i) nested += "<a b='c'>";
  std::vector<Piece> large(80, {1, kXmpName + nested});
  EXPECT_EQ(Saved(ReadPhotoMetadata(Jpeg(large))), "");
}

}  // namespace
}  // namespace tarnwell
