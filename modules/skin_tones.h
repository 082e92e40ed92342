#pragma once

#include <string>
#include <string_view>

#include "modules/skin_tone_list.h"
#include "platform/status.h"

namespace tarnwell {

class Files;
struct Module1;
struct Rgb;

// The list of skin tones and its file "skintones.ski" in the program folder: per entry two lines,
// the name and the colour text.

// Replaces the file by the list.
Status SkinTonesSave(const Module1& app, Files& files, const SkinTones& tones);

// Replaces the list by the file. Without a file, or with one that cannot be read at all, the list
// stays. When the last entry has no colour line, the entries before it are in the list and the
// failure names file and line. The selected index stays if the new list has such an entry.
Status SkinTonesLoad(const Module1& app, Files& files, SkinTones& tones);

// The same between list and text; `name` is the file in messages.
std::string SkinTonesText(const SkinTones& tones);
Status ParseSkinTones(std::string_view text, const std::string& name, SkinTones& tones);

// Selects an entry; an index outside the list selects nothing.
void SelectEntry(SkinTones& tones, int index);

// The selected tone's name, as the panel shows it; empty when none is selected.
std::string SkinToneCaption(const SkinTones& tones);

// The colour of a colour text, digits at 1 to 3, 5 to 7 and 9 to 11: at most 255 a channel, 0 for
// one that is not written in digits.
Rgb ColourOfTone(const std::string& text);

}  // namespace tarnwell
