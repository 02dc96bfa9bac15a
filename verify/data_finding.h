// Findings of the checks of data: what is wrong with which datum, and the sentence made from it.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "zelaccess/DataCheck.h"

namespace zel {

struct CheckedBank {
  std::string type;
  std::string name;

  CheckedBank(std::string typeText, std::string nameText)
      : type(std::move(typeText)), name(std::move(nameText)) {}
  // "TYPE:NAME"
  std::string Text() const { return type + ":" + name; }
};

// The item that a finding is about.
struct CheckedItem {
  std::string library;
  CheckedBank bank;
  std::vector<std::int32_t> key;
  std::string text;   // "ACETONE"
  std::string place;  // "CRC ACETONE"

  CheckedItem(std::string libraryName, CheckedBank bankName, std::vector<std::int32_t> keyWords,
              std::string itemText, std::string placeText)
      : library(std::move(libraryName)),
        bank(std::move(bankName)),
        key(std::move(keyWords)),
        text(std::move(itemText)),
        place(std::move(placeText)) {}
};

// A number as findings show it.
std::string Shown(double value);

// What a value should be.
class Expected {
 public:
  Expected() = default;
  Expected(double min, double max, std::string text)
      : min_(min), max_(max), text_(std::move(text)) {}
  static Expected Value(double value) { return Expected(value, value, Shown(value)); }
  static Expected AtLeast(double min) {
    return Expected(min, gen_GetUndefDouble(), "at least " + Shown(min));
  }
  static Expected AtMost(double max) {
    return Expected(gen_GetUndefDouble(), max, "at most " + Shown(max));
  }
  static Expected Text(std::string text) {
    return Expected(gen_GetUndefDouble(), gen_GetUndefDouble(), std::move(text));
  }

  double Min() const { return min_; }
  double Max() const { return max_; }
  std::string const& Text() const { return text_; }

 private:
  double min_ = gen_GetUndefDouble();
  double max_ = gen_GetUndefDouble();
  std::string text_;
};

// What is wrong with a datum.
class DataFinding {
 public:
  DataFinding(char const* id, std::string datum) : id_(id), datum_(std::move(datum)) {}

  DataFinding& Value(double value, std::string unit = {}) {
    value_ = value;
    valueText_ = Shown(value);
    unit_ = std::move(unit);
    return *this;
  }
  // A value that is not a number, or is not one number.
  DataFinding& Text(std::string text) {
    valueText_ = std::move(text);
    return *this;
  }
  DataFinding& At(double kelvin) {
    temperature_ = kelvin;
    return *this;
  }
  DataFinding& Expect(Expected expected) {
    expected_ = std::move(expected);
    return *this;
  }
  DataFinding& Against(std::string what) {
    against_ = std::move(what);
    return *this;
  }
  // How likely the datum is wrong, 0 to 1; unless it is set, by severity.
  DataFinding& Strength(double strength) {
    strength_ = strength;
    return *this;
  }
  // An error, though other findings of the check are warnings.
  DataFinding& AsError(bool isError) {
    isError_ = isError;
    return *this;
  }

  // The pattern with the members in the place of their names in braces: {datum}, {value},
  // {temperature}, {expected}, {min}, {max}, {against}. Numbers are followed by their unit.
  std::string Sentence(std::string_view pattern) const;
  char const* Id() const { return id_; }
  bool IsError() const { return isError_; }
  double StrengthAs(zelFindings severity) const;
  // Sets the members that are about the datum. Texts belong to this object.
  void Fill(ZelDataFinding& out) const;

 private:
  char const* id_;
  std::string datum_;
  double value_ = gen_GetUndefDouble();
  std::string valueText_;
  std::string unit_;
  double temperature_ = gen_GetUndefDouble();  // K
  Expected expected_;
  std::string against_;
  double strength_ = gen_GetUndefDouble();
  bool isError_ = false;
};

// Passes findings on to the host's sink, except those that the host does not want.
class DataFindings {
 public:
  DataFindings(ZelDataFindingSink& sink, ZelDataCheckOptions const& options);

  // `sentence` is the pattern of the text; see DataFinding::Sentence.
  void Tell(CheckedItem const& item, DataFinding const& finding, std::string_view sentence);
  // Reports something that cannot be read, once.
  void Damage(char const* id, std::string const& library, std::string const& place,
              std::string const& text);
  // Reports that the host cancelled the check.
  void Cancelled(std::string const& library);
  void Progress(std::string const& library, CheckedBank const& bank, std::int64_t done,
                std::int64_t total) {
    sink_.Checked(library.c_str(), bank.Text().c_str(), done, total);
  }
  // True while no error and no damage was reported.
  bool IsGood() const { return isGood_; }

 private:
  zelFindings SeverityOf(DataFinding const& finding) const;

  ZelDataFindingSink& sink_;
  std::set<std::string, std::less<>> silent_;
  bool acceptIdentity_;
  bool isGood_ = true;
  std::set<std::string> damages_;  // library, place and text
};

}  // namespace zel
