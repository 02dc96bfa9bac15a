// The formulas above the equation forms are those of docs/equations.md.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <string>
#include <vector>

namespace zel {
namespace {

std::vector<std::string> LinesOf(std::filesystem::path const& path) {
  std::ifstream file(path);
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines;
}

std::string Trimmed(std::string const& text) {
  std::size_t const first = text.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string WithoutBlanks(std::string text) {
  auto const isBlank = [](unsigned char c) { return std::isspace(c) != 0; };
  text.erase(std::remove_if(text.begin(), text.end(), isBlank), text.end());
  return text;
}

// A row of the table of forms: number, usual name, form, end.
struct Form {
  std::string name;
  std::string formula;
  std::string end;
};

// The forms by number. A row whose form is "below" has its formula in the paragraph that begins
// with the number in bold; that text has the full stop, which the others get here.
std::map<int, Form> DocumentedForms() {
  std::map<int, Form> forms;
  std::regex const row(R"(\| (\d+) \|([^|]*)\|([^|]*)\|([^|]*)\|)");
  std::regex const opening(R"(\*\*(\d+)\.\*\* (.*))");
  std::string* paragraph = nullptr;
  for (std::string const& line : LinesOf(ZEL_DOCS "/equations.md")) {
    std::smatch parts;
    if (std::regex_match(line, parts, row)) {
      std::string const formula = Trimmed(parts[3]);
      forms[std::stoi(parts[1])] = {Trimmed(parts[2]), formula == "below" ? "" : formula + ".",
                                    Trimmed(parts[4])};
    } else if (std::regex_match(line, parts, opening)) {
      paragraph = &forms.at(std::stoi(parts[1])).formula;
      *paragraph = parts[2];
    } else if (line.empty()) {
      paragraph = nullptr;
    } else if (paragraph != nullptr) {
      *paragraph += " " + line;
    }
  }
  return forms;
}

// The comment above a form up to its units.
std::string ExpectedComment(int number, Form const& form) {
  std::string text = "Equation " + std::to_string(number);
  if (!form.name.empty()) text += ", " + form.name;
  text += ": " + form.formula;
  if (!form.end.empty()) text += " End: " + form.end + ".";
  return text + " Units: ";
}

// The comments above the forms of one source, by number: each form is a template "EqN", or a case
// of its number that has a comment of its own.
void CollectComments(std::filesystem::path const& source, std::map<int, std::string>& comments) {
  std::regex const form(R"(typename S::Result Eq(\d+)\(.*|    case (\d+): .*)");
  std::string comment;
  for (std::string const& line : LinesOf(source)) {
    std::string const text = Trimmed(line);
    std::smatch parts;
    if (text.rfind("//", 0) == 0) {
      comment += " " + Trimmed(text.substr(2));
    } else if (text == "template <typename S>") {
      continue;
    } else {
      bool const isForm = std::regex_match(line, parts, form);
      if (isForm && parts[1].matched) comments[std::stoi(parts[1])] = Trimmed(comment);
      if (isForm && parts[2].matched && !comment.empty()) {
        comments[std::stoi(parts[2])] = Trimmed(comment);
      }
      comment.clear();
    }
  }
}

std::map<int, std::string> FormComments() {
  std::map<int, std::string> comments;
  for (auto const& entry : std::filesystem::directory_iterator(ZEL_DOCS "/../purecomp")) {
    std::string const name = entry.path().filename().string();
    bool const hasForms = name.rfind("form", 0) == 0 && entry.path().extension() == ".h";
    if (hasForms || name == "equations.cpp") CollectComments(entry.path(), comments);
  }
  return comments;
}

TEST(FormComments, HaveTheFormulasOfTheDocument) {
  auto const forms = DocumentedForms();
  auto const comments = FormComments();
  ASSERT_GT(forms.size(), 40U);
  for (auto const& [number, form] : forms) {
    ASSERT_FALSE(form.formula.empty()) << "equation " << number << " has no formula";
    auto const found = comments.find(number);
    ASSERT_NE(found, comments.end()) << "no form of equation " << number;
    std::string const expected = ExpectedComment(number, form);
    std::string const bare = WithoutBlanks(expected);
    EXPECT_EQ(WithoutBlanks(found->second).substr(0, bare.size()), bare) << expected;
    EXPECT_GT(WithoutBlanks(found->second).size(), bare.size())
        << "equation " << number << " has no units";
  }
}

TEST(FormComments, EveryFormIsInTheDocument) {
  auto const forms = DocumentedForms();
  for (auto const& [number, comment] : FormComments()) {
    EXPECT_EQ(forms.count(number), 1U) << "equation " << number << ": " << comment;
  }
}

}  // namespace
}  // namespace zel
