#include "desk/findings/written_data.h"

#include <zelaccess/BlockError.h>
#include <zelaccess/DataCheck.h>

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "desk/open/item_key.h"

namespace zel::desk {
namespace {

class Collector final : public zel::ZelDataFindingSink {
 public:
  void Found(zel::zelFindings, char const*, char const*, char const*) override {}
  void FoundData(zel::ZelDataFinding const& found) override {
    bool const isCount =
        found.id == std::string_view("equation") && found.severity == zel::findingWarning;
    if (!isCount) findings.push_back(FindingOf(found));
  }

  std::vector<Finding> findings;
};

std::set<std::string> TextsOf(std::vector<Finding> const& findings) {
  std::set<std::string> texts;
  for (Finding const& one : findings) texts.insert(one.text);
  return texts;
}

void RemoveThose(std::set<std::string> const& texts, std::vector<Finding>& findings) {
  findings.erase(std::remove_if(findings.begin(), findings.end(),
                                [&](Finding const& one) { return texts.count(one.text) != 0; }),
                 findings.end());
}

}  // namespace

std::vector<Finding> FindingsAbout(PureComponent const& component, std::string const& library,
                                   BankName const& bank) {
  static constexpr char const* kSilent[] = {"cas", "source"};
  zel::ZelDataCheckOptions options;
  options.silent = kSilent;
  options.silentCount = static_cast<std::int32_t>(std::size(kSilent));
  Collector collector;
  zel::CheckComponentData(component.operator->(), library.c_str(), bank.name.c_str(), options,
                          collector);
  std::stable_partition(collector.findings.begin(), collector.findings.end(),
                        [](Finding const& one) { return one.severity == zel::findingError; });
  return std::move(collector.findings);
}

std::vector<Finding> NewAmong(std::vector<Finding> now, std::vector<Finding> const& before) {
  RemoveThose(TextsOf(before), now);
  return now;
}

void WrittenComponents::Add(std::int32_t number, PureComponent const* before) {
  if (before_.count(number) != 0) return;
  before_[number] = before == nullptr ? std::set<std::string>()
                                      : TextsOf(FindingsAbout(*before, library_->Path(), bank_));
}

std::vector<Finding> WrittenComponents::NewFindings() const {
  std::vector<Finding> all;
  PureComponent const component;
  for (auto const& [number, texts] : before_) {
    if (!ReadComponent(*library_, bank_, std::to_string(number), component)) continue;
    std::vector<Finding> found = FindingsAbout(component, library_->Path(), bank_);
    RemoveThose(texts, found);
    std::move(found.begin(), found.end(), std::back_inserter(all));
  }
  return all;
}

template <typename Work>
void ImportedComponents::Reading(BankName const& bank, Work const& work) const {
  try {
    work();
  } catch (unsigned long const address) {
    zel::BlockError const error(address);
    library_.InSession().Note(library_.Path() + ": " + ToText(bank) +
                              ": its values are not judged: " + error.Reason());
  }
}

std::set<std::int32_t> ImportedComponents::NumbersIn(BankName const& bank) const {
  PureComponent const component;
  std::set<std::int32_t> numbers;
  for (std::vector<std::int32_t> const& key : Keys(library_, bank, *component.Def())) {
    numbers.insert(key[0]);
  }
  return numbers;
}

ImportedComponents::ImportedComponents(Library const& library, std::string const& replaced)
    : library_(library) {
  PureComponent const component;
  for (BankName const& bank : library.Banks(kPureType)) {
    Bank& known = banks_.emplace(bank.name, Bank{{}, {library, bank}}).first->second;
    Reading(bank, [&] {
      known.known = NumbersIn(bank);
      if (bank.name != replaced) return;
      for (std::int32_t const number : known.known) {
        if (ReadComponent(library, bank, std::to_string(number), component)) {
          known.written.Add(number, &component);
        }
      }
    });
  }
}

std::vector<Finding> ImportedComponents::Errors() const {
  std::vector<Finding> errors;
  for (BankName const& bank : library_.Banks(kPureType)) {
    auto const at = banks_.find(bank.name);
    Bank after = at == banks_.end() ? Bank{{}, {library_, bank}} : at->second;
    Reading(bank, [&] {
      for (std::int32_t const number : NumbersIn(bank)) {
        if (after.known.count(number) == 0) after.written.Add(number, nullptr);
      }
      for (Finding& one : after.written.NewFindings()) {
        if (one.severity == zel::findingError) errors.push_back(std::move(one));
      }
    });
  }
  return errors;
}

}  // namespace zel::desk
