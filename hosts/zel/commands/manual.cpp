#include "commands/manual.h"

#include <algorithm>
#include <vector>

namespace zelhost {
namespace {

constexpr char kTop[] = R"(.TH ZEL 1 "" "zel )" ZEL_VERSION R"(" "User Commands"
.SH NAME
zel \- inspects and maintains component libraries of thermophysical data
.SH SYNOPSIS
.B zel
.I COMMAND
.RI [ WORDS ]
.RI [ OPTIONS ]
.SH DESCRIPTION
A component library is a pair of files, NAME.lb1 and NAME.lb2, with banks of data: pure components with
their constants and correlations, interaction parameters of pairs, group tables, mappings of names.
.PP
A library is named by its first file, or by the name of that file without .lb1 if it is in the current folder or on
the path; a bank by its name, by its type if there is only one bank of that type,
or as TYPE:NAME; a component by its number, its ID, its CAS number or its name, or the
unique beginning of the name; a temperature with its unit, as in
298.15K, 25C, 537R or 77F, and without one in K, or in the unit of \-\-units; a range as MIN:MAX, where one end may be missing.
.PP
memo, set, import, copy, edit, delete, undo, merge, renumber, refs, parameters and create \-\-force work on a copy next to the library and move it into place
at the end: a command that fails or is killed leaves the library unchanged.
.SH OPTIONS OF ALL COMMANDS
)";

constexpr char kBottom[] = R"(.SH ENVIRONMENT
.TP
.B ZEL_PATH
folders, with colons between them, in which a library is looked up that is named without a folder and is not in
the current one; NAME means NAME.lb1
.TP
.B ZEL_CONFIG
the configuration file; no file if the variable is empty
.TP
.B ZEL_NAMES
the library to look up unknown IDs in, if \-\-names is not given
.TP
.B ZEL_UNITS
the units to show and to read, if \-\-units is not given
.TP
.B ZEL_WAIT
the seconds to wait for a library that is in use, if \-\-wait is not given
.TP
.B ZEL_PASSWORD
the password, if \-\-password is not given; unlike that option, other users of the machine cannot see it
.TP
.B NO_COLOR
if it is set, text on a terminal has no colors
.TP
.B COLUMNS
the width of a terminal that does not say how wide it is
.TP
.B ZEL_PROGRESS_DELAY
milliseconds until long work shows its progress on a terminal; 500 by default
.SH EXIT STATUS
0 if the work was done, 1 if it failed or a fault was found, 2 if the command line
is invalid.
.SH FILES
.TP
.I ~/.config/zel/config
the configuration file, or zel/config in the folder of XDG_CONFIG_HOME: lines NAME = VALUE for path, libraries
(the default of \-\-lib), names and units, and below [unit\-sets] sets of units. The environment and the command
line override it; zel path shows what holds
.TP
.I .NAME.lb1.zel-new
the copy of NAME.lb1 and NAME.lb2 that a command works on; the next command that names the library removes
what a killed command left of it
.TP
.I .NAME.lb1.zel-ready
a change that is being put in place; if it was cut off before its last step, the next command that names the
library moves the old files back, otherwise it only removes this folder
.TP
.I .NAME.lb1.zel-history
the versions of NAME.lb1 that changes have replaced, in folders 1, 2 and so on; zel log lists the changes and
zel undo takes them back
)";

// Keeps minus signs as they are typed, and lines from being read as requests.
std::string Escaped(std::string const& text) {
  std::string escaped;
  for (char const c : text) {
    if (c == '-') {
      escaped += "\\-";
    } else if (c == '\\') {
      escaped += "\\e";
    } else if ((c == '.' || c == '\'') && (escaped.empty() || escaped.back() == '\n')) {
      escaped += "\\&";
      escaped += c;
    } else {
      escaped += c;
    }
  }
  return escaped;
}

std::string NamesOf(CLI::Option const& option) {
  std::string names;
  for (std::string const& name : option.get_snames()) names += "-" + name + ", ";
  for (std::string const& name : option.get_lnames()) names += "--" + name + ", ";
  names.resize(names.size() - 2);
  return names;
}

void PutOptions(CLI::App const& app, bool positional, std::string& page) {
  for (CLI::Option const* option : app.get_options()) {
    if (IsHidden(*option) || option->get_positional() != positional) continue;
    if (app.get_parent() != nullptr && option == app.get_help_ptr()) continue;
    page += ".TP\n.B " + Escaped(positional ? option->get_name() : NamesOf(*option));
    if (!positional && !option->get_type_name().empty()) {
      page += " " + Escaped(option->get_type_name());
    }
    page += "\n" + Escaped(option->get_description()) + "\n";
  }
}

std::string Synopsis(CLI::App const& command) {
  std::string words = "zel " + command.get_name();
  for (CLI::Option const* option : command.get_options()) {
    if (!option->get_positional()) continue;
    bool const several = option->get_items_expected_max() > 1;
    std::string const word = option->get_name() + (several ? "..." : "");
    words += option->get_required() ? " " + word : " [" + word + "]";
  }
  return words;
}

}  // namespace

std::vector<CLI::App const*> Commands(CLI::App const& app) {
  return app.get_subcommands([](CLI::App const*) { return true; });
}

bool IsHidden(CLI::Option const& option) { return option.get_group().empty(); }

std::string ManualPage(CLI::App const& app) {
  std::string page = kTop;
  PutOptions(app, false, page);
  page += ".SH COMMANDS\n";
  for (CLI::App const* command : Commands(app)) {
    page +=
        ".SS " + Escaped(Synopsis(*command)) + "\n" + Escaped(command->get_description()) + ".\n";
    PutOptions(*command, true, page);
    PutOptions(*command, false, page);
    page += ".PP\n.nf\n" + Escaped(command->get_footer()) + "\n.fi\n";
  }
  return page + kBottom;
}

}  // namespace zelhost
