// The constants of a component, each with the library it came from or the way it was derived.
#include <cstdio>

#include "tour.h"

namespace tour {
namespace {

constexpr char const* kIds[] = {"ETHANOL", "ACN", "PRCHXENE"};

// Empty when the critical constants agree with each other, or all come from one library.
std::string WarningOf(Merged const& merged) {
  std::uint8_t warning = 0;
  char text[260];
  merged->GetConsistencyWarning(&warning, text);
  return warning != 0 ? text : "";
}

void PrintWarnings(Merged& merged, Components const& components) {
  int count = 0;
  std::string names;
  for (Component const& component : components.All()) {
    if (!merged.Find(component) || WarningOf(merged).empty()) continue;
    ++count;
    names += (names.empty() ? "" : ", ") + component.name;
  }
  std::printf("\nComponents with such a warning after merging: %d%s%s\n", count,
              count == 0 ? "" : ": ", names.c_str());
}

}  // namespace

void PrintConstants(Merged& merged, Components const& components, Codes& cited) {
  for (char const* id : kIds) {
    Component const& component = components.ById(id);
    if (!merged.Find(component)) continue;
    char source[260];
    std::uint8_t flag = 0;
    merged.Def()->GetSource(source, &flag);
    std::printf("\n%s, %s, CAS %s - source: %s\n\n", component.name.c_str(),
                component.formula.c_str(), component.cas.c_str(), source);
    std::printf("  %-12s %14s  %-13s %4s  %s\n", "constant", "value", "unit", "ref", "from");
    for (ConstantRow const& row : AllConstants()) {
      double stored = 0.0;
      double value = 0.0;
      merged->GetProperty(row.index, &stored);
      merged->GetCompleted(row.index, &value);
      merged->GetPropertySource(row.index, source, &flag);
      if (zel::gen_IsUndefDouble(value)) continue;
      std::uint32_t code = 0;
      if (!zel::gen_IsUndefDouble(stored)) merged->GetPropertyRefCode(row.index, &code);
      std::printf("  %-12s %14.7g  %-13s ", row.keyword, value, row.unit);
      if (code == 0) {
        std::printf("%4s", "-");
      } else {
        PrintCode(static_cast<int>(code), cited);
      }
      // The one critical constant that follows from the three others has no label.
      std::printf("  %s\n", source[0] == '\0' ? "(derived)" : source);
    }
    std::string const warning = WarningOf(merged);
    if (!warning.empty()) std::printf("\n  %s\n", warning.c_str());
  }
  PrintWarnings(merged, components);
}

}  // namespace tour
