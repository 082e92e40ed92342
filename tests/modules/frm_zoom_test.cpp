#include "modules/frm_zoom.h"

#include <gtest/gtest.h>

#include "modules/frm_skin_tones.h"
#include "modules/white_balance.h"
#include "tests/support/panel_desk.h"
#include "tests/support/pictures.h"

namespace tarnwell {
namespace {

constexpr MouseButton kLeftButton = MouseButton::kLeft;
constexpr MouseButton kRightButton = MouseButton::kRight;

class ZoomTest : public ::testing::Test {
 protected:
  void Open(ZoomMode mode, int width, int height) {
    photo = RandomPixels(width, height);
    ResizeZoom(zoom, 200, 100);
    OpenZoom(zoom, mode, photo);
  }
  Rgb PixelAt(int x, int y) const {
    const std::uint8_t* pixel = photo->view().at(x, y);
    return {pixel[kRed], pixel[kGreen], pixel[kBlue]};
  }
  void Up(MouseButton button, ZoomPoint point) {
    ZoomMouseUp(zoom, button, point, desk.panel, manager, desk.events);
  }

  PanelDesk desk;
  frmSkinTones manager;
  frmZoom zoom;
  Picture photo;
};

TEST_F(ZoomTest, DraggingStopsAtThePhotosEdges) {
  const struct {
    const char* name;
    int width, height;  // of the photo, in a container of 200 x 100
    int left, top;      // before
    int dx, dy;         // of the pointer
    int expected_left, expected_top;
  } cases[] = {
      {"inside", 500, 400, -100, -100, 30, -40, -70, -140},
      {"left top edge", 500, 400, -100, -100, 101, 101, 0, 0},
      {"right bottom edge", 500, 400, -100, -100, -201, -201, -300, -300},
      {"narrower than the container", 150, 400, 0, -10, 50, -50, 0, -60},
      {"lower than the container", 500, 99, -10, 0, -50, 50, -60, 0},
      {"exactly the container's size", 200, 100, 0, 0, 7, -7, 0, 0},
      {"one pixel of play", 201, 101, 0, 0, -50, -50, -1, -1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Open(ZoomMode::kViewOnly, c.width, c.height);
    zoom.left = c.left;
    zoom.top = c.top;
    ZoomMouseDown(zoom, kLeftButton, {60, 60});
    ZoomMouseMove(zoom, {60 + c.dx, 60 + c.dy});
    EXPECT_EQ(zoom.left, c.expected_left);
    EXPECT_EQ(zoom.top, c.expected_top);
    Up(kLeftButton, {60 + c.dx, 60 + c.dy});
    ZoomMouseMove(zoom, {60, 60});
    EXPECT_EQ(zoom.left, c.expected_left) << "the button is up";
    EXPECT_TRUE(zoom.visible);
  }
}

TEST_F(ZoomTest, ArrowKeysMoveTheViewByStepsAndStopAtTheEdges) {
  Open(ZoomMode::kPickWhite, 240, 180);  // may move by 40 and by 80
  ZoomKeyDown(zoom, ArrowKey::kRight);
  EXPECT_EQ(zoom.left, -32);
  ZoomKeyDown(zoom, ArrowKey::kRight);
  EXPECT_EQ(zoom.left, -40);
  ZoomKeyDown(zoom, ArrowKey::kLeft);
  EXPECT_EQ(zoom.left, -8);
  ZoomKeyDown(zoom, ArrowKey::kLeft);
  EXPECT_EQ(zoom.left, 0);
  ZoomKeyDown(zoom, ArrowKey::kDown);
  ZoomKeyDown(zoom, ArrowKey::kDown);
  EXPECT_EQ(zoom.top, -64);
  ZoomKeyDown(zoom, ArrowKey::kUp);
  EXPECT_EQ(zoom.top, -32);
}

TEST_F(ZoomTest, GrowingContainerLeavesNoGap) {
  Open(ZoomMode::kViewOnly, 300, 300);
  zoom.left = -100;
  zoom.top = -200;
  ResizeZoom(zoom, 250, 400);
  EXPECT_EQ(zoom.left, -50);
  EXPECT_EQ(zoom.top, 0);
}

TEST_F(ZoomTest, ReleaseOfTheLeftButtonPicksTheWhitePixel) {
  Open(ZoomMode::kPickWhite, 300, 200);
  zoom.left = -50;
  zoom.top = -20;
  ZoomMouseDown(zoom, kLeftButton, {10, 5});
  EXPECT_EQ(zoom.lblColor, PixelAt(60, 25));
  ZoomMouseMove(zoom, {11, 7});
  EXPECT_EQ(zoom.lblColor, PixelAt(61, 27));
  bool open_meanwhile = false;
  desk.events.on_run = [&](int) { open_meanwhile = zoom.visible; };
  Up(kLeftButton, {12, 7});
  const Rgb white = GetWhiteClr(photo->view(), 62, 27);
  EXPECT_EQ(desk.panel.picked_white, white);
  EXPECT_EQ(desk.panel.lblWhiteClr, white);
  EXPECT_TRUE(desk.panel.white_swatch_visible);
  EXPECT_TRUE(open_meanwhile) << "events run before the window closes";
  EXPECT_FALSE(zoom.visible);
}

TEST_F(ZoomTest, SwatchKeepsItsColourBesideThePhoto) {
  Open(ZoomMode::kPickWhite, 50, 50);
  ZoomMouseDown(zoom, kLeftButton, {49, 49});
  const Rgb last = zoom.lblColor;
  for (const ZoomPoint beside : {ZoomPoint{50, 20}, ZoomPoint{20, 50}, ZoomPoint{-1, 3}}) {
    ZoomMouseMove(zoom, beside);
    EXPECT_EQ(zoom.lblColor, last);
  }
}

TEST_F(ZoomTest, OtherButtonsAndViewOnlyNeverPick) {
  const struct {
    const char* name;
    ZoomMode mode;
    MouseButton down, up;
  } cases[] = {
      {"right drag while picking white", ZoomMode::kPickWhite, kRightButton, kRightButton},
      {"right down, left up", ZoomMode::kPickWhite, kRightButton, kLeftButton},
      {"left down, right up", ZoomMode::kPickWhite, kLeftButton, kRightButton},
      {"left click while viewing", ZoomMode::kViewOnly, kLeftButton, kLeftButton},
      {"middle drag while picking skin", ZoomMode::kPickSkin, MouseButton::kMiddle,
       MouseButton::kMiddle},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Open(c.mode, 300, 300);
    ZoomMouseDown(zoom, c.down, {50, 50});
    Up(c.up, {40, 40});
    EXPECT_FALSE(desk.panel.picked_white.has_value());
    EXPECT_FALSE(manager.visible);
    EXPECT_TRUE(zoom.visible);
  }
}

TEST_F(ZoomTest, InstructionsFollowTheModeAndSkinPickingLeavesThem) {
  Open(ZoomMode::kPickWhite, 10, 10);
  EXPECT_EQ(zoom.instruction,
            "Left-click to select white pixel. Use keyboard arrows or right-click photo and drag "
            "to move.");
  EXPECT_TRUE(zoom.lblColor_visible);
  const std::string before = zoom.instruction;
  OpenZoom(zoom, ZoomMode::kPickSkin, photo);
  EXPECT_EQ(zoom.instruction, before);
  EXPECT_TRUE(zoom.lblColor_visible);
  OpenZoom(zoom, ZoomMode::kViewOnly, photo);
  EXPECT_EQ(zoom.instruction, "Use keyboard arrows or click photo and drag to move.");
  EXPECT_FALSE(zoom.lblColor_visible);
  OpenZoom(zoom, ZoomMode::kPickSkin, photo);
  EXPECT_FALSE(zoom.lblColor_visible);
  ZoomMouseDown(zoom, kLeftButton, {1, 1});
  EXPECT_TRUE(zoom.lblColor_visible) << "the colour is what the user holds the button for";
}

TEST_F(ZoomTest, WithoutAPhotoItStaysClosed) {
  OpenZoom(zoom, ZoomMode::kPickWhite, nullptr);
  EXPECT_FALSE(zoom.visible);
  ZoomMouseDown(zoom, kLeftButton, {0, 0});
  ZoomKeyDown(zoom, ArrowKey::kLeft);
  Up(kLeftButton, {0, 0});
  EXPECT_FALSE(desk.panel.picked_white.has_value());
}

TEST_F(ZoomTest, SkinColourGoesBackToTheManager) {
  OpenSkinTones(manager, desk.panel.skin_tones);
  manager.description = "Mine";
  GetColorFromPhoto(manager, desk.panel);
  EXPECT_FALSE(manager.visible);
  EXPECT_EQ(desk.zooms, std::vector{ZoomMode::kPickSkin});

  Open(ZoomMode::kPickSkin, 300, 200);
  ZoomMouseDown(zoom, kLeftButton, {1, 1});
  Up(kLeftButton, {30, 40});
  const Rgb skin = PixelAt(30, 40);
  EXPECT_FALSE(zoom.visible);
  EXPECT_TRUE(manager.visible);
  EXPECT_EQ(manager.swatch, skin);
  EXPECT_EQ(manager.fields[2], std::to_string(skin.blue));
  EXPECT_EQ(manager.description, "Mine");
  EXPECT_FALSE(desk.panel.picked_white.has_value());

  GetColorFromPhoto(manager, desk.panel);
  Open(ZoomMode::kPickSkin, 300, 200);
  CloseZoom(zoom, manager);
  EXPECT_TRUE(manager.visible) << "closing without a pick loses no edits";
  EXPECT_EQ(manager.swatch, skin);
}

}  // namespace
}  // namespace tarnwell
