#pragma once

#include <optional>
#include <utility>

#include "ui/control.h"

namespace tarnwell {

// How much a button asks for attention.
enum class ButtonKind {
  kAccent,  // the one thing to do next
  kPlain,   // outlined
  kFlat,    // only its text or icon, until the pointer comes
};

// A text that stands for itself; screen readers find it.
class Label : public Control {
 public:
  Label(const Look& look, Ground ground, Face face, bool quiet = false, UINT align = DT_LEFT)
      : Control(look, ground), face_(face), quiet_(quiet), align_(align) {}
  void Create(HWND parent, const std::wstring& text);
  // Over as many lines as it takes, not one that is cut off.
  void SetWrapped(bool wrapped) { wrapped_ = wrapped; }

 protected:
  void Paint(Painter& painter, const Box& client) override;
  // An "&" in a file's name is no access key.
  LRESULT WantedKeys() const override { return 0; }

 private:
  Face face_;
  bool wrapped_ = false;
  bool quiet_;
  UINT align_;
};

class Button : public Control {
 public:
  Button(const Look& look, Ground ground, ButtonKind kind, std::optional<Glyph> glyph = {})
      : Control(look, ground), kind_(kind), glyph_(glyph) {}

  // `text_shown`: beside the icon; the name is there for screen readers all the same.
  void Create(HWND parent, const std::wstring& name, bool text_shown = true);

  std::function<void()> clicked = [] {};
  // Told when the button goes down (true) and up again; for what lasts as long as it is held.
  std::function<void(bool)> holding = [](bool) {};

  // Drawn as chosen, for one of several or for a switch.
  void SetChosen(bool chosen);

 protected:
  void Paint(Painter& painter, const Box& client) override;
  LRESULT WantedKeys() const override { return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON; }
  void OnClick() override { clicked(); }
  void OnPress(int, int) override { holding(true); }
  void OnRelease(int, int) override { holding(false); }
  LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;

  bool chosen() const { return chosen_; }
  // The ground of the button in its state; returns the colour for what stands on it.
  Colour PaintGround(Painter& painter, const Box& client);

 private:
  ButtonKind kind_;
  std::optional<Glyph> glyph_;
  bool text_shown_ = true;
  bool chosen_ = false;
};

// A button whose face is a drawing.
class PictureButton : public Button {
 public:
  using Face = std::function<void(Painter&, const Box&, Colour)>;
  PictureButton(const Look& look, Face face)
      : Button(look, Ground::kCard, ButtonKind::kPlain), face_(std::move(face)) {}

 protected:
  void Paint(Painter& painter, const Box& client) override;

 private:
  Face face_;
};

// A box that is on or off. It shows what `is_on` says.
class CheckBox : public Control {
 public:
  explicit CheckBox(const Look& look, Ground ground = Ground::kCard) : Control(look, ground) {}
  void Create(HWND parent, const std::wstring& caption);
  void Update();  // the state may have changed

  std::function<bool()> is_on = [] { return false; };
  std::function<void()> clicked = [] {};

 protected:
  void Paint(Painter& painter, const Box& client) override;
  void OnClick() override { clicked(); }
};

// One of several choices, with a round mark. Those that were made one after the other belong
// together: the arrow keys move among them.
class RadioButton : public Control {
 public:
  explicit RadioButton(const Look& look, Ground ground = Ground::kCard) : Control(look, ground) {}
  void Create(HWND parent, const std::wstring& caption);
  void Update();  // the choice may have changed

  std::function<bool()> is_on = [] { return false; };
  std::function<void()> clicked = [] {};
  // Arrow keys choose what they come to. Not where a choice brings up a window: there they only
  // move, and the space bar chooses.
  bool arrows_choose = true;

 protected:
  void Paint(Painter& painter, const Box& client) override;
  void OnClick() override { clicked(); }
  bool OnKey(WPARAM key) override;
  LRESULT WantedKeys() const override { return DLGC_BUTTON | DLGC_RADIOBUTTON | DLGC_WANTARROWS; }
};

// A field that shows the present choice and opens a list of all.
class ChoiceBox : public Control {
 public:
  struct Entry {
    std::wstring text;
    bool current = false;
  };
  explicit ChoiceBox(const Look& look, Ground ground = Ground::kCard) : Control(look, ground) {}
  void Create(HWND parent, const std::wstring& name);
  void SetShown(const std::wstring& shown);

  std::function<std::vector<Entry>()> entries = [] { return std::vector<Entry>(); };
  std::function<void(int)> chosen = [](int) {};

 protected:
  void Paint(Painter& painter, const Box& client) override;
  void OnClick() override;
  bool OnKey(WPARAM key) override;
  // The arrow down opens the list, and so does Enter.
  LRESULT WantedKeys() const override {
    return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON | DLGC_WANTARROWS;
  }

 private:
  std::wstring shown_;
};

}  // namespace tarnwell
