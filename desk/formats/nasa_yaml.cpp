// The same polynomials in YAML: a list `species`, each with `name`, `composition` and `thermo`. The
// only source that includes yaml-cpp.
#include "desk/formats/nasa.h"

#include "desk/words/failure.h"

#ifdef ZEL_WITH_YAML
#include <yaml-cpp/yaml.h>

#include <algorithm>

#include "desk/words/number_range.h"

namespace zel::desk {
namespace {

std::size_t LineOf(YAML::Node const& node) {
  return node.Mark().is_null() ? 0 : static_cast<std::size_t>(node.Mark().line) + 1;
}

std::string TextIn(YAML::Node const& node) {
  return node && node.IsScalar() ? node.Scalar() : std::string();
}

double NumberIn(YAML::Node const& node) {
  std::string const text = TextIn(node);
  try {
    return ParseNumber(text, "a number");
  } catch (WrongUsage const& error) {
    throw Failure("line " + std::to_string(LineOf(node)) + ": " + error.what());
  }
}

std::vector<double> NumbersIn(YAML::Node const& node, char const* what) {
  if (!node || !node.IsSequence()) throw Failure(std::string("it has no list ") + what);
  std::vector<double> numbers;
  for (YAML::Node const& one : node) numbers.push_back(NumberIn(one));
  return numbers;
}

std::vector<NasaRange> RangesIn(YAML::Node const& thermo) {
  std::string const model = TextIn(thermo["model"]);
  std::size_t const count = model == "NASA7" ? 7 : 9;
  std::vector<double> const limits = NumbersIn(thermo["temperature-ranges"], "temperature-ranges");
  YAML::Node const data = thermo["data"];
  if (!data || !data.IsSequence()) throw Failure("it has no list data");
  if (limits.size() != data.size() + 1) {
    throw Failure("it has " + std::to_string(data.size()) + " ranges, but " +
                  std::to_string(limits.size()) + " temperatures");
  }
  std::vector<NasaRange> ranges;
  for (std::size_t i = 0; i < data.size(); ++i) {
    NasaRange range{LineOf(data[i]), limits[i], limits[i + 1], NumbersIn(data[i], "of numbers")};
    if (range.a.size() != count) {
      throw Failure("line " + std::to_string(range.line) + ": it has " +
                    std::to_string(range.a.size()) + " coefficients, not " + std::to_string(count));
    }
    if (!(range.low > 0.0 && range.low < range.high)) {
      throw Failure("the range " + Digits(range.low) + " to " + Digits(range.high) +
                    " K is not one");
    }
    ranges.push_back(std::move(range));
  }
  return ranges;
}

ForeignComponent ReadOne(YAML::Node const& node, ForeignOptions const& options) {
  NasaSpecies species;
  species.line = LineOf(node);
  species.name = TextIn(node["name"]);
  YAML::Node const thermo = node["thermo"];
  std::string const model = thermo && thermo.IsMap() ? TextIn(thermo["model"]) : "";
  bool const isKnown = model == "NASA7" || model == "NASA9";
  try {
    YAML::Node const composition = node["composition"];
    if (composition && composition.IsMap()) {
      for (auto const& one : composition) {
        species.elements[TextIn(one.first)] = NumberIn(one.second);
      }
    }
    if (isKnown) species.ranges = RangesIn(thermo);
  } catch (Failure const& failure) {
    species.fault = failure.what();
  }
  ForeignComponent component = FromNasa(species, options);
  if (!isKnown) {
    component.Note(species.line, "thermo", Fate::kNoPlace, "IdealGasCp",
                   model.empty() ? "it has no model" : "the model " + model + " has no form here");
  }
  for (auto const& one : node) {
    std::string const key = TextIn(one.first);
    if (key == "name" || key == "composition" || key == "thermo") continue;
    component.Note(LineOf(one.first), key, Fate::kNoPlace, "", "a component has no such datum");
  }
  return component;
}

}  // namespace

ForeignFile ReadNasaYaml(std::string const& path, ForeignOptions const& options) {
  ForeignFile file;
  file.namesAreFormulas = true;
  try {
    YAML::Node const root = YAML::Load(ForeignText(path));
    YAML::Node const list = root.IsMap() ? root["species"] : YAML::Node();
    if (!list || !list.IsSequence() || list.size() == 0) {
      throw Failure(path + ": has no list of species");
    }
    for (YAML::Node const& one : list) {
      if (!one.IsMap()) {
        throw Failure(path + ", line " + std::to_string(LineOf(one)) + ": is not a species");
      }
      file.components.push_back(ReadOne(one, options));
    }
  } catch (YAML::Exception const& error) {
    throw Failure(path + ", line " +
                  std::to_string(error.mark.is_null() ? 1 : error.mark.line + 1) + ": " +
                  error.msg);
  }
  return file;
}

}  // namespace zel::desk

#else

namespace zel::desk {

ForeignFile ReadNasaYaml(std::string const& path, ForeignOptions const& /*options*/) {
  throw Failure(path + ": this program was built without yaml-cpp, which reads YAML");
}

}  // namespace zel::desk

#endif
