#include "modules/skin_tones.h"

#include <algorithm>

#include "modules/frm_modules.h"
#include "platform/files.h"
#include "shell/line_reader.h"
#include "shell/module1.h"

namespace tarnwell {
namespace {

std::string SkinTonesPath(const Module1& app) { return app.program_folder + "skintones.ski"; }

}  // namespace

std::string SkinTonesText(const SkinTones& tones) {
  std::string text;
  for (int i = 0; i < tones.count(); ++i) {
    text += tones.names[i] + "\r\n" + tones.colours[i] + "\r\n";
  }
  return text;
}

Status ParseSkinTones(std::string_view text, const std::string& name, SkinTones& tones) {
  const int selected = tones.selected;
  tones = {.names = {}, .colours = {}, .selected = -1};
  LineReader lines(text, name);
  Status status;
  while (const auto tone_name = lines.Next()) {
    const auto colour = lines.Next();
    if (!colour) {
      status = lines.Missing();
      break;
    }
    tones.names.emplace_back(*tone_name);
    tones.colours.emplace_back(*colour);
  }
  SelectEntry(tones, selected);
  return status;
}

Status SkinTonesSave(const Module1& app, Files& files, const SkinTones& tones) {
  return files.Replace(SkinTonesPath(app), SkinTonesText(tones));
}

Status SkinTonesLoad(const Module1& app, Files& files, SkinTones& tones) {
  const std::string path = SkinTonesPath(app);
  if (!files.FileExists(path)) return Status::Ok();
  const Result<std::string> text = files.Read(path, kMostTextBytes);
  if (!text.ok()) return text.status;
  return ParseSkinTones(*text, files.Display(path), tones);
}

void SelectEntry(SkinTones& tones, int index) {
  tones.selected = index >= 0 && index < tones.count() ? index : -1;
}

std::string SkinToneCaption(const SkinTones& tones) {
  return tones.HasSelection() ? tones.names[tones.selected] : "";
}

Rgb ColourOfTone(const std::string& text) {
  const auto channel = [&text](std::size_t at) {
    int value = 0;
    for (std::size_t i = at; i < at + 3 && i < text.size(); ++i) {
      if (text[i] < '0' || text[i] > '9') return 0;
      value = value * 10 + (text[i] - '0');
    }
    return std::min(value, 255);
  };
  return {channel(0), channel(4), channel(8)};
}

}  // namespace tarnwell
