#include "command.h"

#include <CLI/CLI.hpp>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "failure.h"
#include "library.h"

namespace zelhost {
namespace {

int exitStatus = 0;
Form outputForm = Form::kText;

template <typename TargetVariant>
CLI::Option* Added(CLI::App& command, std::string const& names, TargetVariant const& target,
                   std::string const& help) {
  return std::visit([&](auto* to) { return command.add_option(names, *to, help); }, target);
}

}  // namespace

Command::Command(CLI::App& app, std::string const& name, std::string const& purpose,
                 std::string const& example)
    : sub_(app.add_subcommand(name, purpose)) {
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

Command& Command::Required(std::string const& names, Target target, std::string const& help,
                           std::string const& typeName) {
  Added(*sub_, names, target.to_, help)->required()->type_name(typeName)->allow_extra_args(false);
  return *this;
}

Command& Command::Flag(std::string const& names, bool& target, std::string const& help) {
  sub_->add_flag(names, target, help);
  return *this;
}

void Command::Run(Outputs outputs, std::function<Report()> work) {
  sub_->add_flag_callback(
      "--json", [] { outputForm = Form::kJson; }, "print JSON");
  if (outputs == Outputs::kJsonAndCsv) {
    sub_->add_flag_callback(
            "--csv", [] { outputForm = Form::kCsv; }, "print comma-separated values")
        ->excludes("--json");
  }
  sub_->callback([work = std::move(work)] {
    OpenNames();
    Report report = work();
    std::string const text = Print(report, outputForm);
    bool const isChanged = report.MakeChange();
    try {
      Write(text);
    } catch (Failure const& failure) {
      if (!isChanged) throw;
      throw Failure(failure.what() + std::string("; the change is in place"));
    }
  });
}

Form OutputForm() { return outputForm; }
void SetExitStatus(int status) { exitStatus = status; }
int ExitStatus() { return exitStatus; }

void Write(std::string const& text) {
  if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() || std::fflush(stdout) != 0 ||
      std::ferror(stdout) != 0) {
    if (errno == EPIPE) throw PipeClosed();
    throw Failure(std::string("standard output cannot be written: ") + std::strerror(errno));
  }
}

}  // namespace zelhost
