#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tarnwell {

struct Form1;

// The module's commands in the main window. They tell the user what came of them.

// Asks for any number of photos; none when the user cancels.
using ChooseShots = std::function<std::vector<std::string>(const std::string& title)>;

// Asks which of several entries are wanted, all of them checked at first. One answer per entry;
// none when the user cancels.
using CheckEntries = std::function<std::vector<bool>(
    const std::string& title, const std::string& text, const std::vector<std::string>& entries)>;

// "Add Test Shots...": adds photos to the current camera's test shots.
void AddTestShotsClick(Form1& form, const ChooseShots& choose);

// "Assess Test Shots": makes the dead pixel maps of the current camera anew. Which, the user is
// asked where there are several resolutions. Shows progress, and can be cancelled there.
void AssessTestShotsClick(Form1& form, const CheckEntries& check);

}  // namespace tarnwell
