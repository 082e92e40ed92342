#include "ui/panel_parts.h"

#include "ui/buttons.h"

namespace tarnwell {
namespace {

constexpr int kCaptionHeight = 20;
constexpr int kFieldHeight = 32;

}  // namespace

PanelPart MakeCaption(HWND parent, const Look& look, const std::wstring& text) {
  auto label = std::make_unique<Label>(look, Ground::kCard, Face::kCaption, /*quiet=*/true);
  label->Create(parent, text);
  return {std::move(label), [&look](const Box& row) {
            return Box{row.x, row.y, row.width, look.Px(kCaptionHeight)};
          }};
}

std::function<Box(const Box&)> FieldPlace(const Look& look, int button_width) {
  return [&look, button_width](const Box& row) {
    const int taken = button_width > 0 ? look.Px(button_width) + look.Px(kPartGap) : 0;
    return Box{row.x, row.y + look.Px(kCaptionHeight), row.width - taken, look.Px(kFieldHeight)};
  };
}

std::function<Box(const Box&)> ButtonPlace(const Look& look, int button_width) {
  return [&look, button_width](const Box& row) {
    const int width = look.Px(button_width);
    return Box{row.right() - width, row.y + look.Px(kCaptionHeight), width, look.Px(kFieldHeight)};
  };
}

PanelPart MakeTextButton(HWND parent, const Look& look, const std::wstring& name,
                         std::function<void()> clicked, std::function<Box(const Box&)> place) {
  auto button = std::make_unique<Button>(look, Ground::kCard, ButtonKind::kPlain);
  button->clicked = std::move(clicked);
  button->Create(parent, name);
  return {std::move(button), std::move(place)};
}

PanelParts MakeCommands(HWND parent, const Look& look, PanelHost& host, int share,
                        const RowCommand& first, const RowCommand& second) {
  const auto first_width = [&look, share](const Box& row) {
    return (row.width - look.Px(kPartGap)) * share / 100;
  };
  const auto clicked = [&host](const RowCommand& command) {
    return [&host, run = command.run] { host.command(run); };
  };
  PanelParts parts;
  parts.push_back(
      MakeTextButton(parent, look, first.name, clicked(first), [first_width](const Box& row) {
        return Box{row.x, row.y, first_width(row), row.height};
      }));
  parts.push_back(MakeTextButton(parent, look, second.name, clicked(second),
                                 [first_width, &look](const Box& row) {
                                   const int left = row.x + first_width(row) + look.Px(kPartGap);
                                   return Box{left, row.y, row.right() - left, row.height};
                                 }));
  return parts;
}

}  // namespace tarnwell
