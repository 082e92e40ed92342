#pragma once

#include <string>

namespace tarnwell {

// An ICC profile of the colours that displays without a profile of their own are taken to have.
std::string SrgbProfile();

}  // namespace tarnwell
