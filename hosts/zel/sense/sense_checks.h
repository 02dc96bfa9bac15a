// Plausibility checks: data that cannot all be right although each value can be stored.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "open/library.h"
#include "open/pure_component.h"

namespace zelhost {

// Receives a finding: which check, where, and what is wrong with which value. `isError` makes an
// error of a finding whose kind is otherwise a warning.
class TellSense {
 public:
  using Take = std::function<void(char const* id, std::string const& place, std::string const& text,
                                  bool isError)>;

  TellSense(Take take) : take_(std::move(take)) {}  // NOLINT(google-explicit-constructor): a lambda
  void operator()(char const* id, std::string const& place, std::string const& text,
                  bool isError = false) const {
    take_(id, place, text, isError);
  }

 private:
  Take take_;
};

// A kind of check, for the documentation and for --silence.
struct SenseKind {
  char const* id;
  char const* rule;
  bool isError = false;  // an error, not a warning
};
std::vector<SenseKind> const& SenseKinds();
// The check for a component that is another substance in another bank.
inline constexpr char kIdentity[] = "identity";

// Checks one component, as its bank has it, against the rules that need no other component.
void CheckComponentSense(PureComponent const& component, std::string const& place,
                         TellSense const& tell);

// Checks that need several components. Pass it all components of a bank, then call Close.
class SenseAcross {
 public:
  explicit SenseAcross(TellSense tell) : tell_(std::move(tell)) {}

  void Component(PureComponent const& component, std::string const& place);
  void Close();

 private:
  struct Seen {
    std::string place;
    std::string formula;
    std::string text;  // what is compared
  };
  void CasShared();
  void Repeated();

  TellSense tell_;
  std::vector<std::pair<std::string, Seen>> casNumbers_;
  std::map<std::string, std::vector<Seen>> constants_;  // by keyword and value
  std::vector<std::pair<std::string, Seen>> numbers_;   // coefficients, critical constants
};

// Reports constants of one component in two libraries that differ by more than a factor of 1.5.
void CheckMagnitude(PureComponent const& one, std::string const& onePlace,
                    PureComponent const& other, std::string const& otherPlace,
                    TellSense const& tell);

// Checks the vapor pressure of a component at the normal boiling point that another library has for
// it.
void CheckBoilingPoint(PureComponent const& one, std::string const& onePlace,
                       PureComponent const& other, std::string const& otherPlace,
                       TellSense const& tell);

}  // namespace zelhost
