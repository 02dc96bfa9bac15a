#include "desk/pages/page.h"

#include <algorithm>
#include <set>

#include "desk/pages/embedded.h"
#include "desk/pages/page_data.h"
#include "desk/pictures/markup.h"

namespace zel::desk {
namespace {

// The template with "@NAME@" replaced by its text; texts may contain such words.
std::string Filled(std::vector<std::pair<std::string_view, std::string>> const& texts) {
  std::string_view rest = Embedded(kPage);
  std::string out;
  while (!rest.empty()) {
    std::size_t const at = std::min(rest.find('@'), rest.size());
    out += rest.substr(0, at);
    rest.remove_prefix(at);
    for (auto const& [name, text] : texts) {
      if (rest.substr(0, name.size()) != name) continue;
      out += text;
      rest.remove_prefix(name.size());
      break;
    }
    if (!rest.empty() && rest[0] == '@') {
      out += '@';
      rest.remove_prefix(1);
    }
  }
  return out;
}

Page Build(PageData const& data, std::string const& title, std::string const& maker) {
  Page page = data.Counts();
  std::string script;
  for (unsigned char const* const part :
       {kCurvesScript, kFormulaScript, kChartsScript, kSheetScript, kPageScript}) {
    script += Embedded(part);
  }
  page.html = Filled({{"@TITLE@", Escaped(title)},
                      {"@CHART_STYLE@", std::string(Embedded(kUplotStyle))},
                      {"@STYLE@", std::string(Embedded(kPageStyle))},
                      {"@DATA@", data.ToJson(maker)},
                      {"@CHART_LICENSE@", std::string(Embedded(kUplotLicense))},
                      {"@CHART_SCRIPT@", std::string(Embedded(kUplotScript))},
                      {"@SCRIPT@", script}});
  return page;
}

void Tell(PageOptions const& options, std::size_t done, std::size_t total) {
  if (options.progress) options.progress(done, total);
}

}  // namespace

Page MakeSheet(PreferenceList& list, std::vector<std::string> const& components, bool each,
               PageOptions const& options) {
  PageData data(list, !each);
  std::vector<std::pair<std::size_t, long>> columns;
  std::string names;
  std::set<std::size_t> places;
  std::size_t done = 0;
  for (std::string const& word : components) {
    Tell(options, done++, components.size());
    std::size_t const place = data.AddComponent(word);
    if (!places.insert(place).second) continue;  // named twice
    names += (names.empty() ? "" : ", ") + data.NameOf(place);
    if (!each) columns.emplace_back(place, -1);
    for (std::size_t const source : data.SourcesOf(place)) {
      if (each) columns.emplace_back(place, static_cast<long>(source));
    }
  }
  data.SetColumns(columns);
  return Build(data, options.title.empty() ? names : options.title, options.maker);
}

Page MakeLibraryPage(PreferenceList& list, bool acceptIdentity, PageOptions const& options) {
  PageData data(list, false);
  std::set<std::int32_t> numbers;
  for (PlacedComponent const& one : list.Components()) numbers.insert(one.identity.number);
  std::size_t done = 0;
  for (std::int32_t const number : numbers) {
    Tell(options, done++, numbers.size());
    data.AddComponent(std::to_string(number));
  }
  data.AddPairs();
  data.AddFindings(acceptIdentity);
  std::string names;
  for (std::size_t i = 0; i < list.Count(); ++i) names += (i == 0 ? "" : ", ") + list.Name(i);
  return Build(data, options.title.empty() ? names : options.title, options.maker);
}

}  // namespace zel::desk
