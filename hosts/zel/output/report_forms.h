// The forms of a report, each in its own source file.
#pragma once

#include <string>

#include "output/report.h"
#include "output/screen.h"

namespace zelhost {

std::string PrintText(Report const& report, Screen const& screen);
std::string PrintJson(Report const& report, std::string const& command);
std::string PrintCsv(Report const& report);

// The name of a column with its unit.
std::string Head(Column const& column);

}  // namespace zelhost
