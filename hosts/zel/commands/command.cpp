#include "commands/command.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <sstream>

#include "commands/completion.h"
#include "commands/manual.h"
#include "commands/usage_hints.h"
#include "desk/files/standard_output.h"
#include "desk/open/names_library.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"
#include "desk/words/nearest_word.h"

namespace zelhost {
namespace {

constexpr double kLongestWait = 86400.0;  // in s, a day

// A text that is printed instead of running a command.
struct OtherText {
  std::string text;
};

std::vector<std::string> CommandNames(CLI::App const& app) {
  std::vector<std::string> names;
  for (CLI::App const* command : app.get_subcommands([](CLI::App const*) { return true; })) {
    names.push_back(command->get_name());
  }
  return names;
}

// A suggestion for the first word that looks like an option of the command and is not one.
std::string NearestOption(CLI::App const& app, std::string const& command, int count,
                          char** words) {
  std::vector<std::string> names;
  for (CLI::App const* owner : {static_cast<CLI::App const*>(app.get_subcommand(command)), &app}) {
    for (CLI::Option const* option : owner->get_options()) {
      if (option->get_group().empty()) continue;
      for (std::string const& name : option->get_lnames()) names.push_back("--" + name);
    }
  }
  for (int i = 2; i < count; ++i) {
    std::string word(words[i], std::strcspn(words[i], "="));
    if (word == "--") break;
    bool const isShort = word.size() > 2 && word[0] == '-' && word[1] != '-';
    if (isShort) word.insert(0, 1, '-');  // "-fields" may be meant as "--fields"
    bool const isKnown = std::find(names.begin(), names.end(), word) != names.end();
    if (isShort && NearestWord(word, names).empty()) continue;  // "-lperry.lb1"
    if (word.rfind("--", 0) == 0 && (isShort || !isKnown)) return DidYouMean(word, names);
  }
  return ";";
}

// The message that the first word is not a command, with the most similar one; empty if it is a
// command or an option.
std::string WhyNoCommand(CLI::App const& app, int count, char** words) {
  std::string const first = count > 1 ? words[1] : "";
  if (first.empty() || first.front() == '-') return "";
  auto const isFirst = [&](CLI::App const* command) { return command->get_name() == first; };
  if (!app.get_subcommands(isFirst).empty()) return "";
  return "'" + first + "' is not a zel command" + DidYouMean(first, CommandNames(app)) +
         " see zel --help";
}

// What is wrong with the command line, and which help to look at.
std::string Complaint(CLI::App const& app, CLI::ParseError const& error, int count, char** words) {
  char const* const first = count > 1 ? words[1] : "";
  if (std::string why = WhyNoCommand(app, count, words); !why.empty()) return why;
  if (*first != '-' && *first != '\0') {
    return std::string(error.what()) + UsageHint(app, first, error) +
           NearestOption(app, first, count, words) + " see zel " + first + " --help";
  }
  return std::string(error.what()) + "; see zel --help";
}

template <typename TargetVariant>
CLI::Option* Added(CLI::App& command, std::string const& names, TargetVariant const& target,
                   std::string const& help) {
  return std::visit([&](auto* to) { return command.add_option(names, *to, help); }, target);
}

// The word as a shell reads it.
std::string Quoted(std::string const& word) {
  constexpr char kPlain[] =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-+_./:,=@%^";
  if (!word.empty() && word.find_first_not_of(kPlain) == std::string::npos) return word;
  bool const hasControls = std::any_of(word.begin(), word.end(),
                                       [](char c) { return (c >= 0 && c < ' ') || c == '\x7f'; });
  std::string text = hasControls ? "$'" : "'";
  for (char const c : word) {
    if (c == '\'') {
      text += hasControls ? "\\'" : "'\\''";
    } else if (hasControls && c == '\\') {
      text += "\\\\";
    } else if ((c >= 0 && c < ' ') || c == '\x7f') {
      char code[8];
      std::snprintf(code, sizeof(code), "\\%03o", static_cast<unsigned>(c));
      text += code;
    } else {
      text += c;
    }
  }
  return text + "'";
}

// The command line as it could be typed again, with "***" for the words of secret options.
std::string LineOf(std::vector<std::string> const& words, std::set<std::string> const& secrets) {
  std::string line = "zel";
  bool isSecret = false;
  for (std::string const& word : words) {
    std::size_t const equals = word.find('=');
    bool const holdsSecret =
        equals != std::string::npos && secrets.count(word.substr(0, equals)) != 0;
    line += " " + (isSecret ? "***" : holdsSecret ? word.substr(0, equals) + "=***" : Quoted(word));
    isSecret = secrets.count(word) != 0;
  }
  return line;
}

// Splits words at commas. A word of commas only stays, and is refused.
void TakeApart(std::vector<std::string>& words) {
  std::vector<std::string> parts;
  for (std::string& word : words) {
    std::vector<std::string> list = ListWords(word);
    if (list.empty()) list.push_back(std::move(word));
    parts.insert(parts.end(), list.begin(), list.end());
  }
  words = std::move(parts);
}

void NoteUnitsNotUsed(Session& session) {
  for (auto const& [unit, word] : session.units.NotUsed()) {
    std::string line = "warning: values in ";
    line.append(unit).append(" are per mole; ").append(word);
    session.Note(line.append(", which is per mass, is not used for them"));
  }
}

// The libraries that the words of a target name.
struct FindLibraries {
  LibraryPath const& path;
  void operator()(std::string* word) const { *word = path.FindSource(*word); }
  void operator()(std::optional<std::string>* word) const {
    if (*word) operator()(&**word);
  }
  void operator()(std::vector<std::string>* words) const {
    for (std::string& word : *words) operator()(&word);
  }
  void operator()(int* /*number*/) const {}
};

// Sets the library for names and the units from the configuration file where the command line does
// not.
void UseDefaults(Session& session) {
  Configuration const& file = session.defaults.File();
  if (!session.hasUnits) session.units = DisplayUnits(file.units, file.sets);
  if (!session.hasNames && !file.names.empty()) {
    session.namesPath = file.names;
    session.namesOrigin = file.file;
  }
  try {
    session.namesPath = session.defaults.Path().Find(session.namesPath);
  } catch (OpenError const& error) {
    throw Failure(error.what() + (" (named by " + session.namesOrigin + ")"));
  }
}

// Stores in the session what can be read from the words before they are parsed.
void NoteLine(std::vector<std::string> const& words, std::vector<std::string> const& commands,
              std::set<std::string> const& secrets, Session& session) {
  session.command = LineOf(words, secrets);
  auto const end = std::find(words.begin(), words.end(), "--");
  session.isJson = std::find(words.begin(), end, "--json") != end;
  auto const name = std::find_first_of(words.begin(), end, commands.begin(), commands.end());
  if (name != end) session.commandName = *name;
}

// The help of a command names the options that it shares with all others.
class HelpForm final : public CLI::Formatter {
 public:
  std::string make_footer(CLI::App const* app) const override {
    std::string footer = CLI::Formatter::make_footer(app);
    if (app->get_parent() == nullptr) return footer;
    return "All commands also take --names, --units and --wait; see zel --help.\n\n" + footer;
  }
};

}  // namespace

Command::Command(CommandLine& line, std::string const& name, std::string const& purpose,
                 std::string const& example)
    : session_(line.session_), line_(line), sub_(line.app_->add_subcommand(name, purpose)) {
  sub_->footer("Example:\n  " + example);
}

Command& Command::Argument(std::string const& name, Target target, std::string const& help) {
  Added(*sub_, name, target.to_, help)->required();
  return *this;
}

Command& Command::OptionalArgument(std::string const& name, Target target,
                                   std::string const& help) {
  Added(*sub_, name, target.to_, help);
  return *this;
}

Command& Command::Option(std::string const& names, Target target, std::string const& help,
                         std::string const& typeName) {
  Added(*sub_, names, target.to_, help)->type_name(typeName);
  return *this;
}

Command& Command::Secret(std::string const& names, Target target, std::string const& help,
                         std::string const& typeName) {
  line_.secrets_.insert(names);
  return Option(names, target, help, typeName);
}

Command& Command::Required(std::string const& names, Target target, std::string const& help,
                           std::string const& typeName) {
  Added(*sub_, names, target.to_, help)->required()->type_name(typeName)->allow_extra_args(false);
  return *this;
}

Command& Command::List(std::string const& names, std::vector<std::string>& targets,
                       std::string const& help, std::string const& typeName) {
  lists_.push_back(&targets);
  return Option(names, targets, help, typeName);
}

Command& Command::Flag(std::string const& names, bool& target, std::string const& help) {
  sub_->add_flag(names, target, help);
  return *this;
}

Command& Command::Sources(std::vector<std::string>& targets, std::string const& help,
                          std::string const& typeName) {
  Added(*sub_, "-l,--lib", Target(targets).to_, help)->type_name(typeName)->allow_extra_args(false);
  sources_ = &targets;
  return Library(targets);
}

Command& Command::Library(Target target, bool const* mayBeNew) {
  libraries_.push_back({target, mayBeNew});
  return *this;
}

Command& Command::Mends(bool const* when) {
  mends_ = true;
  mendsWhen_ = when;
  return *this;
}

void Command::Run(Outputs outputs, std::function<Report(Session&)> work) {
  Session& session = session_;
  sub_->add_flag_callback(
      "--json", [&session] { session.form = Form::kJson; }, "print JSON");
  if (outputs == Outputs::kJsonAndCsv) {
    sub_->add_flag_callback(
            "--csv", [&session] { session.form = Form::kCsv; }, "print comma-separated values")
        ->excludes("--json");
  }
  sub_->callback([&session, name = sub_->get_name(), libraries = libraries_, sources = sources_,
                  lists = lists_, mends = mends_, mendsWhen = mendsWhen_, work = std::move(work)] {
    session.commandName = name;
    for (std::vector<std::string>* const words : lists) TakeApart(*words);
    UseDefaults(session);
    if (sources != nullptr && sources->empty()) *sources = session.defaults.File().libraries;
    if (sources != nullptr && sources->empty()) {
      throw WrongUsage("--lib is required: -l LIBRARY, once for each; see zel " + name + " --help");
    }
    for (LibraryWords const& words : libraries) {
      if (words.mayBeNew != nullptr && *words.mayBeNew) continue;
      std::visit(FindLibraries{session.defaults.Path()}, words.target.to_);
    }
    bool const isToMend = mends && (mendsWhen == nullptr || *mendsWhen);
    isToMend ? TryOpenNames(session) : OpenNames(session);
    Report report = work(session);
    report.ShowIn(session.units);
    NoteUnitsNotUsed(session);
    report.SetLines(session.lines);
    std::string const text = Print(report, session.form, session.commandName);
    bool const isChanged = report.MakeChange();
    session.hasReported = true;
    try {
      Write(text);
    } catch (Error const& failure) {
      if (!isChanged) throw;
      throw Failure(failure.what() + std::string("; the change is in place"));
    }
  });
}

CommandLine::CommandLine(Session& session)
    : session_(session),
      app_(std::make_unique<CLI::App>(
          "zel: inspects and maintains component libraries of thermophysical data", "zel")) {
  app_->require_subcommand(1);
  app_->allow_windows_style_options(false);  // "/data/a.lb1" is a path everywhere
  app_->set_version_flag("--version", "zel " ZEL_VERSION);
  app_->footer(
      "A component is named by its number, ID, CAS number or name, a bank by its name\n"
      "or as TYPE:NAME. zel COMMAND --help describes a command, with an example.");
  constexpr std::size_t kWordsColumn = 26;
  app_->formatter(std::make_shared<HelpForm>());
  app_->get_formatter()->column_width(kWordsColumn);
  app_->fallthrough();
  app_->add_option_function<std::string>(
          "--names",
          [&session](std::string const& path) {
            session.namesPath = path;
            session.hasNames = true;
          },
          "a library to look up unknown IDs in")
      ->type_name("LIBRARY")
      ->envname("ZEL_NAMES")
      ->trigger_on_parse();
  app_->add_option_function<std::string>(
          "--units",
          [&session](std::string const& words) {
            session.units = DisplayUnits(words, session.defaults.File().sets);
            session.hasUnits = true;
            session.unitWords = words;
          },
          "units to show and to read: bar,degC")
      ->type_name("LIST")
      ->envname("ZEL_UNITS")
      ->trigger_on_parse();
  app_->add_option_function<double>(
          "--wait",
          [&session](double seconds) {
            session.patience =
                std::chrono::milliseconds(static_cast<std::int64_t>(seconds * 1000.0));
          },
          "for a library that is in use")
      ->type_name("SECONDS")
      ->check(CLI::Range(0.0, kLongestWait))
      ->envname("ZEL_WAIT")
      ->trigger_on_parse();
  // Hidden options for the build, which installs their outputs.
  app_->add_flag_callback("--man", [this] { throw OtherText{ManualPage(*app_)}; })->group("");
  struct {
    char const* flag;
    std::string (*script)(CLI::App const& app);
  } const shells[] = {{"--bash-completion", BashCompletion},
                      {"--zsh-completion", ZshCompletion},
                      {"--fish-completion", FishCompletion}};
  for (auto const& shell : shells) {
    app_->add_flag_callback(shell.flag,
                            [this, script = shell.script] { throw OtherText{script(*app_)}; })
        ->group("");
  }
}

CommandLine::~CommandLine() = default;

int CommandLine::Run(int given, char** givenWords) {
  std::vector<char*> line = WithoutHelpWord(given, givenWords);
  int const count = static_cast<int>(line.size());
  char** const words = line.data();
  // For the scripts of the shells: the words may be only a part of a command line.
  if (count > 1 && std::strcmp(words[1], "--complete") == 0) {
    if (char const* const names = std::getenv("ZEL_NAMES")) session_.namesPath = names;
    Write(CompletedValues(session_, *app_, {words + 2, words + count}));
    return 0;
  }
  NoteLine({words + 1, words + std::max(count, 1)}, CommandNames(*app_), secrets_, session_);
  try {
    app_->parse(count, words);
    return session_.exitStatus;
  } catch (CLI::Success const& wish) {  // --help or --version
    std::string const why = WhyNoCommand(*app_, count, words);
    if (!why.empty()) throw WrongUsage(why);
    std::ostringstream text;
    app_->exit(wish, text, text);
    Write(text.str());
  } catch (OtherText const& wish) {
    Write(wish.text);
  } catch (CLI::ParseError const& error) {
    throw WrongUsage(Complaint(*app_, error, count, words));
  }
  return 0;
}

}  // namespace zelhost
