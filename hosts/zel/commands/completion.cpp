#include "commands/completion.h"

#include <algorithm>

#include "commands/manual.h"
#include "desk/words/letters.h"

namespace zelhost {
namespace {

struct Choice {
  std::string word;
  std::string help;
};

std::vector<Choice> CommandsOf(CLI::App const& app) {
  std::vector<Choice> commands;
  for (CLI::App const* command : Commands(app)) {
    commands.push_back({command->get_name(), command->get_description()});
  }
  return commands;
}

void AddOptions(CLI::App const& owner, std::vector<Choice>& options) {
  for (CLI::Option const* option : owner.get_options()) {
    if (IsHidden(*option)) continue;
    for (std::string const& name : option->get_lnames()) {
      bool const isThere = std::any_of(options.begin(), options.end(), [&](Choice const& choice) {
        return choice.word == "--" + name;
      });
      if (!isThere) options.push_back({"--" + name, option->get_description()});
    }
  }
}

// The options of a command, and those of all commands.
std::vector<Choice> OptionsOf(CLI::App const& app, CLI::App const& command) {
  std::vector<Choice> options;
  AddOptions(command, options);
  AddOptions(app, options);
  return options;
}

std::vector<Choice> GeneralOptions(CLI::App const& app) {
  std::vector<Choice> options;
  AddOptions(app, options);
  return options;
}

// The options of all commands that take a word, with something between them.
std::string OptionsWithWord(CLI::App const& app, std::string const& between) {
  std::string words;
  for (CLI::Option const* option : app.get_options()) {
    if (IsHidden(*option) || option->get_items_expected_max() == 0) continue;
    for (std::string const& name : option->get_lnames()) {
      if (!words.empty()) words += between;
      words.append("--").append(name);
    }
  }
  return words;
}

std::string Words(std::vector<Choice> const& choices) {
  std::string words;
  for (Choice const& choice : choices) words += (words.empty() ? "" : " ") + choice.word;
  return words;
}

// The text in single quotes, for a shell.
std::string Quoted(std::string const& text, char const* quote) {
  std::string quoted = "'";
  for (char const c : text) quoted += c == '\'' ? std::string(quote) : std::string(1, c);
  return quoted + "'";
}

// 'word:help' for the array of zsh.
std::string Described(std::vector<Choice> const& choices) {
  std::string text;
  for (Choice const& choice : choices) {
    std::string word;
    for (char const c : choice.word) word += c == ':' ? std::string("\\:") : std::string(1, c);
    text += "      " + Quoted(word + ":" + choice.help, "'\\''") + "\n";
  }
  return text;
}

}  // namespace

std::string BashCompletion(CLI::App const& app) {
  std::string cases;
  for (CLI::App const* command : Commands(app)) {
    cases +=
        "    " + command->get_name() + ") options=\"" + Words(OptionsOf(app, *command)) + "\" ;;\n";
  }
  return "# bash completion of zel\n"
         "_zel() {\n"
         "  local current=${COMP_WORDS[COMP_CWORD]} word command= options= values\n"
         "  COMPREPLY=()\n"
         "  local before=\n"
         "  for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
         "    case $before$word in -*) ;; *) command=$word; break ;; esac\n"
         "    case $word in " +
         OptionsWithWord(app, "|") +
         ") before=$word ;; *) before= ;; esac\n"
         "  done\n"
         "  case $command in\n"
         "    '') COMPREPLY=($(compgen -W \"" +
         Words(CommandsOf(app)) + " " + Words(GeneralOptions(app)) +
         "\" -- \"$current\")); return ;;\n" + cases +
         "  esac\n"
         "  # Files are completed where nothing else is found.\n"
         "  case $current in\n"
         "    -*) COMPREPLY=($(compgen -W \"$options\" -- \"$current\")) ;;\n"
         "    *) values=$(\"${COMP_WORDS[0]}\" --complete \"${COMP_WORDS[@]:1:COMP_CWORD}\" "
         "2>/dev/null | cut -f 1)\n"
         "      local IFS=$'\\n'\n"
         "      COMPREPLY=($values) ;;\n"
         "  esac\n"
         "}\n"
         "complete -o default -F _zel zel\n";
}

std::string ZshCompletion(CLI::App const& app) {
  std::string cases;
  for (CLI::App const* command : Commands(app)) {
    cases += "    " + command->get_name() + ") choices=(\n" + Described(OptionsOf(app, *command)) +
             "    ) ;;\n";
  }
  return "#compdef zel\n"
         "# zsh completion of zel\n"
         "_zel() {\n"
         "  local word before command\n"
         "  local -a choices values\n"
         "  for word in \"${(@)words[2,CURRENT-1]}\"; do\n"
         "    case $before$word in -*) ;; *) command=$word; break ;; esac\n"
         "    case $word in " +
         OptionsWithWord(app, "|") +
         ") before=$word ;; *) before= ;; esac\n"
         "  done\n"
         "  case $command in\n"
         "    '') choices=(\n" +
         Described(CommandsOf(app)) + "    )\n" +
         "      [[ ${words[CURRENT]} = -* ]] && choices=(\n" + Described(GeneralOptions(app)) +
         "      )\n      _describe command choices; return ;;\n" + cases +
         "  esac\n"
         "  if [[ ${words[CURRENT]} = -* ]]; then\n"
         "    _describe option choices\n"
         "    return\n"
         "  fi\n"
         "  # Files are completed where nothing else is found.\n"
         "  choices=()\n"
         "  values=(\"${(@f)$(${words[1]} --complete \"${(@)words[2,CURRENT]}\" 2>/dev/null)}\")\n"
         "  for word in $values; do\n"
         "    choices+=(\"${${word%%$'\\t'*}//:/\\\\:}:${word#*$'\\t'}\")\n"
         "  done\n"
         "  if (( $#choices )); then _describe value choices; else _files; fi\n"
         "}\n"
         "if [[ $funcstack[1] = _zel ]]; then _zel \"$@\"; else compdef _zel zel; fi\n";
}

std::string FishCompletion(CLI::App const& app) {
  auto const quoted = [](std::string const& text) { return Quoted(text, "\\'"); };
  std::string text =
      "# fish completion of zel\n"
      "function __zel_command\n"
      "  set -l before\n"
      "  for word in (commandline -opc)[2..-1]\n"
      "    switch \"$before$word\"\n"
      "      case '-*'\n"
      "      case '*'\n"
      "        echo $word\n"
      "        return 0\n"
      "    end\n"
      "    set before\n"
      "    contains -- \"$word\" " +
      OptionsWithWord(app, " ") +
      "; and set before $word\n"
      "  end\n"
      "  return 1\n"
      "end\n"
      "function __zel_is\n"
      "  test (__zel_command; or echo) = $argv[1]\n"
      "end\n"
      "function __zel_values\n"
      "  set -l words (commandline -opc)\n"
      "  $words[1] --complete $words[2..-1] (commandline -ct) 2>/dev/null\n"
      "end\n"
      "complete -c zel -n __zel_command -a '(__zel_values)'\n";
  for (Choice const& command : CommandsOf(app)) {
    text += "complete -c zel -n 'not __zel_command' -f -a " + command.word + " -d " +
            quoted(command.help) + "\n";
  }
  for (Choice const& option : GeneralOptions(app)) {
    text += "complete -c zel -l " + option.word.substr(2) + " -d " + quoted(option.help) + "\n";
  }
  for (CLI::App const* command : Commands(app)) {
    std::vector<Choice> options;
    AddOptions(*command, options);
    for (Choice const& option : options) {
      if (option.word == "--help") continue;  // of all commands
      text += "complete -c zel -n '__zel_is " + command->get_name() + "' -l " +
              option.word.substr(2) + " -d " + quoted(option.help) + "\n";
    }
  }
  return text;
}

}  // namespace zelhost
