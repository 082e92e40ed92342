#include "modules/skin_tones.h"

#include <gtest/gtest.h>

#include "modules/frm_skin_tones.h"
#include "tests/support/panel_desk.h"

namespace tarnwell {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kPath = "C:\\TP\\skintones.ski";

TEST(SkinTonesTest, LoadReplacesTheListByTheFile) {
  const struct {
    std::string text;
    int selected_before;
    SkinTones expected;
    std::string message;
  } cases[] = {{"Pale\r\n007,080,255\r\nD\xC3\xA6mpet\n1,2,3",
                1,
                {{"Pale", "D\xC3\xA6mpet"}, {"007,080,255", "1,2,3"}, 1},
                ""},
               {"A\r\n001,002,003\r\n", 3, {{"A"}, {"001,002,003"}, -1}, ""},
               {"", 0, {{}, {}, -1}, ""},
               {"A\r\n001,002,003\r\nB\r\n",
                0,
                {{"A"}, {"001,002,003"}, 0},
                "C:\\TP\\skintones.ski: line 4: the file ends before this line"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    PanelDesk desk;
    desk.files.files[kPath] = c.text;
    SkinTones tones;
    tones.selected = c.selected_before;
    EXPECT_EQ(SkinTonesLoad(desk.app, desk.files, tones).message, c.message);
    EXPECT_EQ(tones, c.expected);
    EXPECT_EQ(desk.files.writes, 0);
    // A file that is not read clears nothing.
    desk.files.files[kPath] = std::string((1 << 20) + 1, 'x');
    EXPECT_FALSE(SkinTonesLoad(desk.app, desk.files, tones).ok());
    EXPECT_EQ(tones, c.expected);
  }
}

class SkinToneManagerTest : public ::testing::Test {
 protected:
  SkinToneManagerTest() { OpenSkinTones(window, desk.panel.skin_tones); }
  void Type(int field, const std::string& text) {
    ColourField_Change(desk.app, desk.platform, window, field, text);
  }
  void Click(int index) { SkinToneList_Click(desk.app, desk.platform, window, index); }
  void Press(SkinToneButton button) {
    SkinToneButton_Click(desk.app, desk.platform, window, button);
  }

  PanelDesk desk;
  frmSkinTones window;
};

TEST_F(SkinToneManagerTest, FieldsTakeNumbersFrom0To255) {
  const struct {
    const char* text;
    const char* field;
    std::optional<int> red;  // of the swatch; nothing when the text is no number
  } cases[] = {{"300", "255", 255},  {"-5", "0", 0}, {"12.5", "12.5", 12},
               {"1e30", "255", 255}, {"", "", {}},   {"12a", "12a", {}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    Type(0, "77");
    desk.dialogs.shown.clear();
    Type(0, c.text);
    EXPECT_EQ(window.fields[0], c.field);
    EXPECT_EQ(window.swatch, (Rgb{c.red.value_or(77), 0, 0}));
    EXPECT_EQ(desk.dialogs.Told(), c.red ? Texts{} : Texts{"Color values must be numeric."});
  }
}

TEST_F(SkinToneManagerTest, AddAndReplaceWriteThreeDigits) {
  window.description = "Pale\r\n";
  Type(0, "7");
  Type(1, "80");
  Type(2, "255");
  Press(kAdd);
  EXPECT_EQ(window.list.names.back(), "Pale");
  EXPECT_EQ(window.list.colours.back(), "007,080,255");
  EXPECT_EQ(window.list.count(), 5);

  Click(1);
  window.description = "Warm";
  Type(0, "0");
  Press(kReplace);
  EXPECT_EQ(window.list.names[1], "Warm");
  EXPECT_EQ(window.list.colours[1], "000,160,138");

  Type(0, "x");
  const SkinTones before = window.list;
  desk.dialogs.shown.clear();
  Press(kAdd);
  Press(kReplace);
  EXPECT_EQ(window.list, before);
  EXPECT_EQ(desk.dialogs.Told().size(), 2u);
}

TEST_F(SkinToneManagerTest, EntriesMoveAndGo) {
  Click(1);
  Press(kMoveDown);
  EXPECT_EQ(window.list.names, (Texts{"Average Caucasian", "Tanned/Olive Caucasian",
                                      "Warm/Flushed Causasian", "Little Green Men!"}));
  EXPECT_EQ(window.list.colours,
            (Texts{"244,198,155", "236,187,098", "224,160,138", "155,244,198"}));
  Press(kMoveDown);
  Press(kMoveDown);
  EXPECT_EQ(window.list.selected, 3) << "the last entry stays the last";
  EXPECT_EQ(window.list.names[3], "Warm/Flushed Causasian");
  for (int i = 0; i < 5; ++i) Press(kMoveUp);
  EXPECT_EQ(window.list.selected, 0);
  EXPECT_EQ(window.list.names[0], "Warm/Flushed Causasian");
  Press(kDelete);
  EXPECT_EQ(window.list.names,
            (Texts{"Average Caucasian", "Tanned/Olive Caucasian", "Little Green Men!"}));
  EXPECT_EQ(window.list.colours, (Texts{"244,198,155", "236,187,098", "155,244,198"}));
  EXPECT_FALSE(window.list.HasSelection());
}

TEST_F(SkinToneManagerTest, OkGivesTheListToPanelAndFile) {
  desk.panel.skin_tones.selected = 3;
  Click(0);
  Press(kDelete);
  SkinTonesOk(desk.app, desk.platform, window, desk.panel);
  EXPECT_EQ(desk.panel.skin_tones.selected, -1) << "there is no fourth entry any more";
  EXPECT_EQ(desk.files.files[kPath],
            "Warm/Flushed Causasian\r\n224,160,138\r\nTanned/Olive Caucasian\r\n236,187,098\r\n"
            "Little Green Men!\r\n155,244,198\r\n");
  EXPECT_FALSE(window.visible);

  OpenSkinTones(window, desk.panel.skin_tones);
  desk.files.refuse_writes = true;
  SkinTonesOk(desk.app, desk.platform, window, desk.panel);
  EXPECT_EQ(desk.dialogs.Told(), Texts{std::string(kPath) + ": the disk is full"});
}

TEST(SkinTonesTest, AColourTextOfAnyShapeHasAColour) {
  const std::pair<const char*, Rgb> kRows[] = {
      {"245,199,159", {245, 199, 159}},
      {"999,000,256", {255, 0, 255}},
      {"12x,7", {0, 7, 0}},
      {"010,2", {10, 2, 0}},
      {"", {0, 0, 0}},
  };
  for (const auto& [text, colour] : kRows) EXPECT_EQ(ColourOfTone(text), colour) << text;
}

}  // namespace
}  // namespace tarnwell
