// What a user has set for all commands: where libraries are, which ones are used, and the units.
//
//   path = ~/libraries:/srv/libraries
//   libraries = own, perry, crc:CRC
//   names = perry
//   units = plant
//
//   [unit-sets]
//   plant = engineering, kJ/mol
#pragma once

#include <map>
#include <string>
#include <vector>

#include "desk/words/display_units.h"

namespace zel::desk {

struct Configuration {
  std::string file;                    // empty without a file
  std::vector<std::string> path;       // folders
  std::vector<std::string> libraries;  // LIBRARY or LIBRARY:BANK
  std::string names;                   // a library
  std::string units;                   // for DisplayUnits
  UnitSets sets;
  std::map<std::string, int> lines;  // of the settings in the file, by name
};

// The settings of a file, none for an empty path. A path in it may begin with ~, and is relative to
// the folder of the file unless it is a mere name. Throws Error, which names the line, for an
// unknown setting, with the most similar one, and for units that do not exist.
Configuration ReadConfiguration(std::string const& path);
// The file of this user: that of the environment variable ZEL_CONFIG, where an empty text means
// none, else zel/config in the folder of XDG_CONFIG_HOME or in ~/.config, if it exists.
std::string ConfigurationFile();

// The folders of the environment variable ZEL_PATH, else those of the configuration.
std::vector<std::string> SearchFolders(Configuration const& configuration);
// True if ZEL_PATH is set and not empty.
bool IsPathOfEnvironment();

}  // namespace zel::desk
