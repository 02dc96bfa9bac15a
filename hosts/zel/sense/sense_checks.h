// Checks of data against sense: what cannot all be right although each value can be stored.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "open/library.h"
#include "open/pure_component.h"

namespace zelhost {

// Takes a finding: which check, where, and what is wrong with which value. An error is more than
// the warning that its kind gives otherwise.
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

// A kind of check, for the documents and for --silence.
struct SenseKind {
  char const* id;
  char const* rule;
  bool isError = false;  // more than a warning
};
std::vector<SenseKind> const& SenseKinds();
// Of a component that is another substance in another bank.
inline constexpr char kIdentity[] = "identity";

// Holds one component, as its bank has it, against the rules that need no other component.
void CheckComponentSense(PureComponent const& component, std::string const& place,
                         TellSense const& tell);

// What only several components or pairs together show. Give it everything of a library, then Close.
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

// Constants of one component in two libraries that differ by more than a factor of 1.5.
void CheckMagnitude(PureComponent const& one, std::string const& onePlace,
                    PureComponent const& other, std::string const& otherPlace,
                    TellSense const& tell);

// The vapor pressure of one component at the normal boiling point that another library has of it.
void CheckBoilingPoint(PureComponent const& one, std::string const& onePlace,
                       PureComponent const& other, std::string const& otherPlace,
                       TellSense const& tell);

}  // namespace zelhost
