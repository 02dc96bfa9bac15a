// The checks of the components of one bank with each other.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "verify/component_view.h"
#include "verify/data_finding.h"

namespace zel {

// Pass it all components of a bank, then call Close.
class BankComponents {
 public:
  explicit BankComponents(DataFindings& findings) : findings_(findings) {}

  void Component(ComponentView const& component, CheckedItem item);
  void Close();

 private:
  // A datum of a component.
  struct Seen {
    std::size_t component;  // in components_
    std::string compared;   // equal to that of another if the data are equal
    std::string datum;
    double value = gen_GetUndefDouble();
    std::string valueText;  // if the value is not a number
    std::string unit;

    Seen(std::size_t own, std::string comparedText, std::string name, std::string text)
        : component(own),
          compared(std::move(comparedText)),
          datum(std::move(name)),
          valueText(std::move(text)) {}
    Seen(std::size_t own, std::string name, double number, std::string unitText)
        : component(own), datum(std::move(name)), value(number), unit(std::move(unitText)) {}
  };
  struct Identified {
    CheckedItem item;
    std::string formula;

    Identified(CheckedItem ownItem, std::string ownFormula)
        : item(std::move(ownItem)), formula(std::move(ownFormula)) {}
  };

  Identified const& Of(Seen const& seen) const { return components_[seen.component]; }
  void AddData(ComponentView const& component);
  void CasShared();
  void Repeated();
  void RepeatedConstants();

  DataFindings& findings_;
  std::vector<Identified> components_;
  std::vector<Seen> casNumbers_;
  std::map<std::string, std::vector<Seen>> constants_;  // by keyword and value
  std::vector<Seen> numbers_;                           // coefficients, critical constants
};

}  // namespace zel
