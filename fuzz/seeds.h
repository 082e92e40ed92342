#pragma once

#include <map>
#include <string>
#include <vector>

namespace tarnwell {

// Well-formed inputs to begin with, by the name of the target that they are for.
using Seeds = std::map<std::string, std::vector<std::string>>;

void AddTextSeeds(Seeds& seeds);      // settings, lists, what was learnt
void AddPictureSeeds(Seeds& seeds);   // photos and maps
void AddMetadataSeeds(Seeds& seeds);  // what photos say beside their pixels

}  // namespace tarnwell
