// The data of a page, as JSON; desk/pages/page.js reads it.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "desk/notes/citations.h"
#include "desk/open/preference_list.h"
#include "desk/pages/page.h"

namespace zel::desk {

class PageData {
 public:
  // Numbers are in the list's display units. With `isMerged`, the curve of the first source that
  // has it is evaluated with the merged constants, as a host evaluates it. Otherwise each source's
  // curves are evaluated with its own constants.
  PageData(PreferenceList& list, bool isMerged) : list_(list), isMerged_(isMerged) {}

  // Adds a component, unless the page has it, and returns its place among those of the page.
  std::size_t AddComponent(std::string const& word);
  // The sources that have a component, by its place.
  std::vector<std::size_t> const& SourcesOf(std::size_t component) const {
    return sources_[component];
  }
  std::string const& NameOf(std::size_t component) const { return names_[component]; }
  // `columns` are places of components with the place of a source, or -1 for the merged one.
  void SetColumns(std::vector<std::pair<std::size_t, long>> const& columns);
  // Adds the pairs of all libraries, and the findings of the checks.
  void AddPairs();
  void AddFindings(bool acceptIdentity);

  std::string ToJson(std::string const& maker) const;
  // The counts and the error; without the text of the page.
  Page const& Counts() const { return counts_; }

 private:
  // One source's part of a component: its constants and curves.
  std::string PartOf(std::size_t source, PureComponent const& own, PureComponent const& merged,
                     std::vector<bool>& isTaken);
  std::string CurveIn(std::uint32_t index, Curve const& curve, PureComponent const& component);
  std::string TemperatureScale() const;
  // Keeps the citations of the codes of a component of one source.
  void Cite(std::size_t source, PureComponent const& component);
  double SampleFrom(std::uint32_t index, Curve const& curve, PureComponent const& component);

  PreferenceList& list_;
  bool isMerged_;
  std::vector<std::string> components_;
  std::map<std::int32_t, std::size_t> places_;  // of components, by number
  std::vector<std::string> names_;
  std::vector<std::vector<std::size_t>> sources_;
  std::vector<std::string> pairs_;
  std::vector<std::string> findings_;
  std::string columns_;
  Citations citations_;
  std::map<std::pair<std::size_t, std::uint32_t>, Citation> cited_;  // by source and code
  std::vector<float> numbers_;
  std::map<int, bool> equations_;
  Page counts_;
};

}  // namespace zel::desk
