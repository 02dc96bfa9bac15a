#include "commands/manual.h"

#include <algorithm>
#include <vector>

namespace zelhost {
namespace {

constexpr char kTop[] = R"(.TH ZEL 1 "" "zel )" ZEL_VERSION R"(" "User Commands"
.SH NAME
zel \- looks into component libraries of thermophysical data and keeps them
.SH SYNOPSIS
.B zel
.I COMMAND
.RI [ WORDS ]
.RI [ OPTIONS ]
.SH DESCRIPTION
A component library is a pair of files, NAME.lb1 and NAME.lb2, with banks of data: pure components with
their constants and correlations, interaction parameters of pairs, group tables, mappings of names.
.PP
A library is named by its first file; a bank by its name, by its type if there is one of it, or as TYPE:NAME;
a component by its number, its ID or its CAS number; a temperature with its unit, as in 298.15K, 25C, 537R
or 77F, and in K without one; a range as MIN:MAX, where one end may be missing.
.PP
memo, set, import, copy and delete work on a copy beside the library and put it in place at the end: one
that fails or is killed leaves the library as it was.
.SH OPTIONS OF ALL COMMANDS
)";

constexpr char kBottom[] = R"(.SH ENVIRONMENT
.TP
.B ZEL_NAMES
stands for \-\-names
.TP
.B ZEL_PASSWORD
stands for \-\-password, which others on the machine can see
.TP
.B ZEL_PROGRESS_DELAY
milliseconds until long work shows a bar on a terminal; 500 when not set
.SH EXIT STATUS
0 when the work was done, 1 when it failed or something was found wrong, 2 when the words of the command line
make no sense.
.SH FILES
.TP
.I .NAME.lb1.zel-new
the copy of NAME.lb1 and NAME.lb2 that a command works on; what a killed command leaves of it goes with the
next change
.TP
.I .NAME.lb1.zel-ready
a change that was cut off while it was put in place; the next command that names the library finishes it
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

std::vector<CLI::App const*> Commands(CLI::App const& app) {
  return app.get_subcommands([](CLI::App const*) { return true; });
}

bool IsHidden(CLI::Option const& option) { return option.get_group().empty(); }

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

std::string BashCompletion(CLI::App const& app) {
  std::string commands;
  std::string cases;
  for (CLI::App const* command : Commands(app)) {
    commands += (commands.empty() ? "" : " ") + command->get_name();
    std::string options;
    for (CLI::App const* owner : {command, &app}) {
      for (CLI::Option const* option : owner->get_options()) {
        if (IsHidden(*option)) continue;
        for (std::string const& name : option->get_lnames()) {
          if (options.find("--" + name + " ") == std::string::npos) options += "--" + name + " ";
        }
      }
    }
    if (!options.empty()) options.pop_back();
    cases += "    " + command->get_name() + ") options=\"" + options + "\" ;;\n";
  }
  return "# bash completion of zel\n"
         "_zel() {\n"
         "  local current=${COMP_WORDS[COMP_CWORD]} word command= options=\n"
         "  COMPREPLY=()\n"
         "  local before=\n"
         "  for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
         "    case $before$word in --names*) ;; -*) ;; *) command=$word; break ;; esac\n"
         "    before=; [ \"$word\" = --names ] && before=--names\n"
         "  done\n"
         "  case $command in\n"
         "    '') COMPREPLY=($(compgen -W \"" +
         commands + " --help --version --names\" -- \"$current\")); return ;;\n" + cases +
         "  esac\n"
         "  # Files are completed where no option is begun.\n"
         "  case $current in -*) COMPREPLY=($(compgen -W \"$options\" -- \"$current\")) ;; esac\n"
         "}\n"
         "complete -o default -F _zel zel\n";
}

}  // namespace zelhost
