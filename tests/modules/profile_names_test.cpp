#include "modules/profile_names.h"

#include <gtest/gtest.h>

namespace tarnwell {
namespace {

TEST(ProfileNamesTest, SixCharactersBecomeUnderscores) {
  EXPECT_EQ(CleanProfileName("My/Cam:1"), "My_Cam_1");
  EXPECT_EQ(CleanProfileName("/\\|:\"?"), "______");
  EXPECT_EQ(CleanProfileName(" *<é>. "), " *<é>. ");
}

TEST(ProfileNamesTest, NamesThatCannotBeFoldersAreRefused) {
  for (const char* name :
       {"", ".", "..", "...", " ", " . ", "CON", "con", "Con.jpg", "nul .txt", "aux", "PRN ",
        "com1", "LPT9.x", "CONOUT$", "a\nb", "tab\t", "~ Dead Pixels", "~ DEAD pixels"}) {
    EXPECT_FALSE(CheckProfileName(name).ok()) << name;
  }
  for (const char* name : {"Default", "Night", "..a", ".hidden", "console", "com", "com0", "com10",
                           "lpt", "nulls", "My con", "写真", " a ", "a.", "~ Dead", "50% *new*"}) {
    EXPECT_TRUE(CheckProfileName(name).ok()) << name;
  }
}

TEST(ProfileNamesTest, ARefusalNamesTheNameAndTheReason) {
  EXPECT_EQ(CheckProfileName("Aux").message, "Aux: the system keeps this name for a device");
}

}  // namespace
}  // namespace tarnwell
