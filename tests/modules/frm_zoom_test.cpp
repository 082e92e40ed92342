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

TEST_F(ZoomTest, ThePhotoStaysInTheMiddleUntilTheUserMovesIt) {
  using Corner = std::pair<int, int>;
  const auto corner = [this] { return Corner(zoom.left, zoom.top); };
  Open(ZoomMode::kViewOnly, 500, 40);
  EXPECT_EQ(corner(), Corner(-150, 30));
  ResizeZoom(zoom, 300, 20);
  EXPECT_EQ(corner(), Corner(-100, -10));
  ZoomKeyDown(zoom, ArrowKey::kUp);
  ResizeZoom(zoom, 400, 30);
  EXPECT_EQ(corner(), Corner(-100, 0));
  ResizeZoom(zoom, 450, 60);
  EXPECT_EQ(corner(), Corner(-50, 10));
}

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
      {"narrower than the container", 150, 400, 25, -10, 50, -50, 25, -60},
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
  std::vector<int> lefts;
  for (const ArrowKey key :
       {ArrowKey::kRight, ArrowKey::kRight, ArrowKey::kLeft, ArrowKey::kLeft}) {
    ZoomKeyDown(zoom, key);
    lefts.push_back(zoom.left);
  }
  EXPECT_EQ(lefts, (std::vector{-40, -40, -8, 0}));
}

TEST_F(ZoomTest, APhotoOfTheSameSizeTakesThePlaceOfTheOneInView) {
  Open(ZoomMode::kViewOnly, 400, 300);
  ZoomKeyDown(zoom, ArrowKey::kRight);
  const int left = zoom.left;
  const Picture corrected = RandomPixels(400, 300);
  EXPECT_TRUE(ShowInZoom(zoom, corrected));
  EXPECT_EQ(zoom.photo, corrected);
  EXPECT_EQ(zoom.left, left);
  EXPECT_FALSE(ShowInZoom(zoom, RandomPixels(300, 400)));
  EXPECT_FALSE(ShowInZoom(zoom, nullptr));
  EXPECT_EQ(zoom.photo, corrected);
}

TEST_F(ZoomTest, ReleaseOfTheLeftButtonPicksTheWhitePixel) {
  Open(ZoomMode::kPickWhite, 300, 200);
  zoom.left = -50;
  zoom.top = -20;
  ZoomMouseDown(zoom, kLeftButton, {10, 5});
  EXPECT_EQ(zoom.lblColor, PixelAt(60, 25));
  bool open_meanwhile = false;
  desk.events.on_run = [&](int) { open_meanwhile = zoom.visible; };
  Up(kLeftButton, {12, 7});
  const Rgb white = GetWhiteClr(photo->view(), 62, 27);
  EXPECT_EQ(desk.panel.picked_white, white);
  EXPECT_TRUE(open_meanwhile) << "events run before the window closes";
  EXPECT_FALSE(zoom.visible);
}

TEST_F(ZoomTest, OtherButtonsAndViewOnlyNeverPick) {
  for (const ZoomMode mode : {ZoomMode::kPickWhite, ZoomMode::kViewOnly}) {
    const MouseButton button = mode == ZoomMode::kViewOnly ? kLeftButton : kRightButton;
    Open(mode, 300, 300);
    ZoomMouseDown(zoom, button, {50, 50});
    Up(button, {40, 40});
    EXPECT_FALSE(desk.panel.picked_white.has_value());
    EXPECT_TRUE(zoom.visible);
  }
}

// In a container of 200 x 100.
TEST_F(ZoomTest, TheKeyboardPicksBelowACrosshair) {
  Open(ZoomMode::kPickWhite, 300, 40);
  PickAtZoomCross(zoom, desk.panel, manager, desk.events);
  ASSERT_TRUE(zoom.cross);
  EXPECT_FALSE(desk.panel.picked_white) << "nothing is taken unseen";
  const int middle = zoom.top + 20;
  EXPECT_EQ(zoom.cross->x, 100);
  EXPECT_EQ(zoom.cross->y, middle);

  MoveZoomCross(zoom, ArrowKey::kUp, 1);
  EXPECT_EQ(zoom.cross->y, middle - 1);
  MoveZoomCross(zoom, ArrowKey::kDown, 2);
  EXPECT_EQ(zoom.cross->y, middle + 1);

  // It stays on the photo, and the photo moves along at the container's edge.
  MoveZoomCross(zoom, ArrowKey::kUp, 1000);
  EXPECT_EQ(zoom.cross->y, zoom.top);
  MoveZoomCross(zoom, ArrowKey::kDown, 1000);
  EXPECT_EQ(zoom.cross->y, zoom.top + 39);
  MoveZoomCross(zoom, ArrowKey::kLeft, 1000);
  EXPECT_EQ(zoom.left, 0);
  MoveZoomCross(zoom, ArrowKey::kRight, 210);
  EXPECT_EQ(zoom.cross->x, 199);
  EXPECT_EQ(zoom.left, -11);
  EXPECT_EQ(zoom.lblColor, PixelAt(210, 39));
  // The arrows move the photo below it.
  ZoomKeyDown(zoom, ArrowKey::kRight);
  EXPECT_EQ(zoom.cross->x, 199);
  EXPECT_EQ(zoom.lblColor, PixelAt(242, 39));

  PickAtZoomCross(zoom, desk.panel, manager, desk.events);
  EXPECT_EQ(desk.panel.picked_white, GetWhiteClr(photo->view(), 242, 39));
  EXPECT_FALSE(zoom.visible);

  Open(ZoomMode::kViewOnly, 300, 200);
  PickAtZoomCross(zoom, desk.panel, manager, desk.events);
  MoveZoomCross(zoom, ArrowKey::kDown, 1);
  EXPECT_FALSE(zoom.cross);
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
  const Rgb skin = PixelAt(80, 90);
  EXPECT_FALSE(zoom.visible);
  EXPECT_TRUE(manager.visible);
  EXPECT_EQ(manager.swatch, skin);
  EXPECT_EQ(manager.description, "Mine");

  GetColorFromPhoto(manager, desk.panel);
  Open(ZoomMode::kPickSkin, 300, 200);
  CloseZoom(zoom, manager);
  EXPECT_TRUE(manager.visible) << "closing without a pick loses no edits";
  EXPECT_EQ(manager.swatch, skin);

  GetColorFromPhoto(manager, desk.panel);
  Open(ZoomMode::kPickSkin, 300, 200);
  Open(ZoomMode::kViewOnly, 300, 200);
  CloseZoom(zoom, manager);
  EXPECT_TRUE(manager.visible) << "the zoom window was wanted for something else meanwhile";
  OpenSkinTones(manager, desk.panel.skin_tones);
  EXPECT_EQ(manager.description, "Mine") << "it is open already";
}

}  // namespace
}  // namespace tarnwell
