// Which public functions the steps call. Each one is called, or excused here.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "tests/long/refused_calls.h"

namespace zel::test {
namespace {

struct Excused {
  char const* functions;
  char const* why;
};

constexpr Excused kExcused[] = {
    {"ZelDataFindingSink::Checked ZelDataFindingSink::FoundData ZelFindingSink::Found "
     "ZelLogSink::BankBegins ZelLogSink::Line ZelProgress::OnProgress ZelSalvageSink::Salvaged",
     "the host implements them"},
    {"IZelBankTest::SelfTest", "no bank has this interface"},
    {"casn::casnI2C casn::casnS2C", "private; noexcept, they fill an array of the object"},
};

// The functions of the public headers except those of the desk, overloads once: "Class::Function"
// or "Function".
std::set<std::string> PublicFunctions() {
  std::regex const ofClass(R"(^class ZEL_API (\w+))");
  std::regex const member(R"(^  (?:virtual|static) [^~;(]*?(\w+)\()");
  std::regex const free(R"(^ZEL_API [^;(]*?(\w+)\()");
  std::set<std::string> found;
  for (auto const& entry : std::filesystem::directory_iterator(ZEL_HEADERS)) {
    if (entry.path().filename().string().rfind("Desk", 0) == 0) continue;
    std::ifstream file(entry.path());
    std::string line;
    std::string owner;
    for (std::smatch match; std::getline(file, line);) {
      if (line.rfind("};", 0) == 0) owner.clear();
      if (std::regex_search(line, match, ofClass)) owner = match[1].str() + "::";
      if (std::regex_search(line, match, member) && !owner.empty()) {
        found.insert(owner + match[1].str());
      } else if (std::regex_search(line, match, free)) {
        found.insert(match[1].str());
      }
    }
  }
  return found;
}

void AddWords(std::set<std::string>& words, std::string const& text) {
  std::istringstream stream(text);
  for (std::string word; stream >> word;) words.insert(word);
}

// Prints those that are in `some`, and in `others` or not. Returns their number.
int PrintThose(std::set<std::string> const& some, std::set<std::string> const& others, bool areIn,
               char const* what) {
  int count = 0;
  for (std::string const& name : some) {
    if ((others.count(name) != 0) != areIn) continue;
    std::printf("%s %s\n", name.c_str(), what);
    ++count;
  }
  return count;
}

}  // namespace

int PrintCoverage(Steps const& steps) {
  std::set<std::string> const known = PublicFunctions();
  std::set<std::string> called;
  std::set<std::string> excused;
  for (Step const& step : steps) AddWords(called, step.calls);
  for (Excused const& row : kExcused) AddWords(excused, row.functions);
  std::set<std::string> named = called;
  named.insert(excused.begin(), excused.end());
  std::printf("%zu steps call %zu of %zu public functions, %zu are excused\n", steps.size(),
              called.size(), known.size(), excused.size());
  return PrintThose(named, known, false, "is not a public function") +
         PrintThose(excused, called, true, "is called, but also excused") +
         PrintThose(known, named, false, "is not called by any step");
}

}  // namespace zel::test
