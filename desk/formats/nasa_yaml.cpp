// The same polynomials in YAML: a list `species`, each with `name`, `composition` and `thermo`. The
// only source that includes yaml-cpp.
#include "desk/formats/nasa.h"

#include "desk/words/failure.h"

#ifdef ZEL_WITH_YAML
#include <yaml-cpp/yaml.h>

#include <algorithm>
#include <map>

#include "desk/words/number_range.h"

namespace zel::desk {
namespace {

// Thrown for the whole file, while a Failure is about one species.
struct YamlTooLarge {};

std::size_t LineOf(YAML::Node const& node) {
  return node.Mark().is_null() ? 0 : static_cast<std::size_t>(node.Mark().line) + 1;
}

std::string TextIn(YAML::Node const& node) {
  return node && node.IsScalar() ? node.Scalar() : std::string();
}

// The beginning of the name of a model.
std::string ModelIn(YAML::Node const& node) { return TextIn(node).substr(0, 40); }

double NumberIn(YAML::Node const& node) {
  std::string const text = TextIn(node);
  try {
    return ParseNumber(text, "a number");
  } catch (WrongUsage const& error) {
    throw Failure("line " + std::to_string(LineOf(node)) + ": " + error.what());
  }
}

// Whether species are ideal gases, by the phases of the file that have them: a list `phases`, each
// with the model `thermo` and `species`, which is a list, "all" or missing for all.
class YamlPhases {
 public:
  explicit YamlPhases(YAML::Node const& phases) {
    if (!phases || !phases.IsSequence()) return;
    for (YAML::Node const& phase : phases) {
      if (!phase.IsMap()) continue;
      std::string const model = ModelIn(phase["thermo"]);
      if (!model.empty()) AddSpecies(phase["species"], model);
    }
  }

  // Why a species is not one; empty for a gas, and for one that is in no phase.
  std::string WhyNotGas(std::string const& name) const {
    auto const at = models_.find(name);
    std::string model = at == models_.end() ? "" : at->second;
    if (model.empty() || (!IsOfGas(model) && !modelOfAll_.empty())) model = modelOfAll_;
    return model.empty() || IsOfGas(model) ? "" : "it is in a phase of the model " + model;
  }

  static bool IsOfGas(std::string const& model) {
    return model == "ideal-gas" || model == "Redlich-Kwong" || model == "Peng-Robinson" ||
           model == "plasma";
  }

 private:
  void AddSpecies(YAML::Node const& species, std::string const& model, bool isInner = false) {
    if (!species || TextIn(species) == "all") return PutGas(modelOfAll_, model);
    if (!species.IsSequence()) return;
    for (YAML::Node const& one : species) {
      constexpr std::size_t kMost = 1'000'000;
      if (++count_ > kMost) throw YamlTooLarge();
      if (one.IsScalar()) PutGas(models_[TextIn(one)], model);
      // "species: [...]" in the list are those of this file, others are of other files.
      if (one.IsMap() && one["species"] && !isInner) AddSpecies(one["species"], model, true);
    }
  }

  static void PutGas(std::string& known, std::string const& model) {
    if (known.empty() || IsOfGas(model)) known = model;
  }

  std::size_t count_ = 0;                      // of names
  std::string modelOfAll_;                     // of a phase with all species
  std::map<std::string, std::string> models_;  // by species
};

class YamlReader {
 public:
  YamlReader(YAML::Node const& phases, ForeignOptions const& options)
      : phases_(phases), options_(options) {}

  ForeignComponent ReadOne(YAML::Node const& node) {
    NasaSpecies species;
    species.line = LineOf(node);
    species.name = TextIn(node["name"]);
    Spend(species.name.size());
    YAML::Node const thermo = node["thermo"];
    std::string const model = thermo && thermo.IsMap() ? ModelIn(thermo["model"]) : "";
    bool const isKnown = model == "NASA7" || model == "NASA9";
    species.notGas = WhyNotGas(species.name, node);
    try {
      YAML::Node const composition = node["composition"];
      if (composition && composition.IsMap()) {
        for (auto const& one : composition) {
          std::string const element = TextIn(one.first);
          Spend(element.size() + TextIn(one.second).size());
          species.elements[element] = NumberIn(one.second);
        }
      }
      if (isKnown) species.ranges = RangesIn(thermo, model);
    } catch (Failure const& failure) {
      species.fault = failure.what();
    }
    ForeignComponent component = FromNasa(species, options_);
    if (!isKnown) {
      component.Note(
          species.line, "thermo", Fate::kNoPlace, "IdealGasCp",
          model.empty() ? "it has no model" : "the model " + model + " has no form here");
    }
    for (auto const& one : node) {
      std::string const key = TextIn(one.first);
      if (key == "name" || key == "composition" || key == "thermo") continue;
      Spend(key.size());
      component.Note(LineOf(one.first), key, Fate::kNoPlace, "", "a component has no such datum");
    }
    return component;
  }

 private:
  // Each alias is read as what it names, so that a small file can be large.
  void Spend(std::size_t bytes) {
    constexpr std::size_t kEach = 200;
    constexpr std::size_t kMost = 100'000'000;
    spent_ += bytes + kEach;
    if (spent_ > kMost) throw YamlTooLarge();
  }

  std::vector<double> NumbersIn(YAML::Node const& node, char const* what, std::size_t most) {
    if (!node || !node.IsSequence()) throw Failure(std::string("it has no list ") + what);
    if (node.size() > most) {
      throw Failure("line " + std::to_string(LineOf(node)) + ": the list " + what + " has " +
                    std::to_string(node.size()) + " numbers");
    }
    std::vector<double> numbers;
    for (YAML::Node const& one : node) {
      Spend(one.IsScalar() ? one.Scalar().size() : 0);
      numbers.push_back(NumberIn(one));
    }
    return numbers;
  }

  std::vector<NasaRange> RangesIn(YAML::Node const& thermo, std::string const& model) {
    constexpr std::size_t kMostRanges = 20;
    std::size_t const count = model == "NASA7" ? 7 : 9;
    YAML::Node const data = thermo["data"];
    if (data && data.IsSequence() && data.size() > kMostRanges) {
      throw Failure("it has " + std::to_string(data.size()) + " ranges, more than 20");
    }
    std::vector<double> const limits =
        NumbersIn(thermo["temperature-ranges"], "temperature-ranges", kMostRanges + 1);
    if (!data || !data.IsSequence()) throw Failure("it has no list data");
    if (limits.size() != data.size() + 1) {
      throw Failure("it has " + std::to_string(data.size()) + " ranges, but " +
                    std::to_string(limits.size()) + " temperatures");
    }
    std::vector<NasaRange> ranges;
    for (std::size_t i = 0; i < data.size(); ++i) {
      NasaRange range{LineOf(data[i]), limits[i], limits[i + 1], {}};
      std::size_t const size = data[i].IsSequence() ? data[i].size() : count;
      if (size != count) {
        throw Failure("line " + std::to_string(range.line) + ": it has " + std::to_string(size) +
                      " coefficients, not " + std::to_string(count));
      }
      range.a = NumbersIn(data[i], "of numbers", count);
      if (!(range.low > 0.0 && range.low < range.high)) {
        throw Failure("the range " + Digits(range.low) + " to " + Digits(range.high) +
                      " K is not one");
      }
      ranges.push_back(std::move(range));
    }
    return ranges;
  }

  // The equation of state of the species, or the phases that have it, may be those of a liquid.
  std::string WhyNotGas(std::string const& name, YAML::Node const& node) const {
    YAML::Node const state = node["equation-of-state"];
    std::string other;
    bool isOfGas = false;
    auto const add = [&](YAML::Node const& one) {
      std::string const model = one && one.IsMap() ? ModelIn(one["model"]) : ModelIn(one);
      isOfGas = isOfGas || YamlPhases::IsOfGas(model);
      if (other.empty()) other = model;
    };
    if (state && state.IsSequence()) {
      for (YAML::Node const& one : state) add(one);
    } else if (state) {
      add(state);
    }
    if (state && !isOfGas)
      return "its equation of state is " + (other.empty() ? "not known" : other);
    return phases_.WhyNotGas(name);
  }

  YamlPhases phases_;
  ForeignOptions const& options_;
  std::size_t spent_ = 0;
};

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
    YamlReader reader(root["phases"], options);
    for (YAML::Node const& one : list) {
      if (!one.IsMap()) {
        throw Failure(path + ", line " + std::to_string(LineOf(one)) + ": is not a species");
      }
      file.components.push_back(reader.ReadOne(one));
    }
  } catch (YamlTooLarge const&) {
    throw Failure(path + ": its species are more than 100 MB, with what aliases stand for");
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
