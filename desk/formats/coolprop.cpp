// Fluids in JSON: an object, or an array of them, with INFO, STATES, EOS, ANCILLARIES and
// TRANSPORT.
#include <zelaccess/ZelAccess.h>

#include <nlohmann/json.hpp>

#include <cmath>

#include "desk/formats/foreign_units.h"
#include "desk/formats/formats.h"
#include "desk/open/field_text.h"
#include "desk/words/failure.h"

namespace zel::desk {
namespace {

using nlohmann::json;

// A constant, the member with its number, the member with its unit, and the unit without one.
struct FluidMember {
  char const* keyword;
  char const* part;  // of STATES; empty for EOS
  char const* member;
  char const* unit;
};
constexpr FluidMember kMembers[] = {
    {"TC", "critical", "T", "K"},        {"PC", "critical", "p", "Pa"},
    {"PTP", "triple_liquid", "p", "Pa"}, {"MW", "", "molar_mass", "kg/mol"},
    {"ACENTRIC", "", "acentric", ""},    {"TTP", "", "Ttriple", "K"},
};

json const* Member(json const* object, std::string const& name) {
  if (object == nullptr || !object->is_object()) return nullptr;
  auto const at = object->find(name);
  return at == object->end() ? nullptr : &*at;
}

std::string StringOf(json const* value) {
  return value != nullptr && value->is_string() ? value->get<std::string>() : std::string();
}

// The text of a number; of anything else one that is not a number.
std::string NumberText(json const& value) {
  if (!value.is_number()) return value.is_string() ? value.get<std::string>() : value.type_name();
  double const number = value.get<double>();
  return std::isfinite(number) ? AllDigits(number) : "not finite";
}

// True for two to seven digits, two and one, with hyphens between them.
bool HasFormOfCas(std::string const& text) {
  auto const isDigits = [](std::string const& part) {
    return part.find_first_not_of("0123456789") == std::string::npos;
  };
  std::size_t const first = text.find('-');
  constexpr std::size_t kAfter = 5;  // "-17-5"
  bool const isLong = first != std::string::npos && first > 1 && text.size() == first + kAfter;
  return isLong && text[first + 3] == '-' && isDigits(text.substr(0, first)) &&
         isDigits(text.substr(first + 1, 2)) && isDigits(text.substr(first + 4));
}

// The document without what no reader of a fluid looks at: what is deeper than the members of an
// equation of state, such as its terms. Throws Failure.
json ParseFluids(std::string const& path) {
  constexpr int kDeepest = 20'000;
  constexpr std::size_t kMostValues = 1'000'000;
  std::size_t values = 0;
  int deepestRead = 3;
  auto const isRead = [&](int depth, json::parse_event_t event, json&) {
    using Event = json::parse_event_t;
    if (event == Event::object_end || event == Event::array_end) return true;
    if (depth > kDeepest) {
      throw Failure(path + ": has more than 20000 values within each other");
    }
    if (depth == 0 && event == Event::array_start) ++deepestRead;
    if (depth > deepestRead) return false;
    if (++values > kMostValues) throw Failure(path + ": has more than a million values");
    return true;
  };
  try {
    return json::parse(ForeignText(path), isRead);
  } catch (json::exception const& error) {
    throw Failure(path + ": is not JSON: " + error.what());
  }
}

class FluidReader {
 public:
  explicit FluidReader(json const& fluid) : fluid_(fluid) {}

  ForeignComponent Read() {
    ReadInfo();
    ReadConstants();
    ReadVolume();
    NoteRest();
    return std::move(component_);
  }

 private:
  void ReadInfo() {
    json const* const info = Member(&fluid_, "INFO");
    if (info == nullptr || !info->is_object()) return;
    for (auto const& [key, value] : info->items()) {
      std::string const tag = "INFO." + key;
      std::string const text = StringOf(&value);
      if (key == "NAME" && !text.empty()) {
        SetName(component_, 0, tag, text);
      } else if (key == "CAS" && HasFormOfCas(text)) {
        SetCas(component_, 0, tag, text);
      } else if (key == "CAS") {
        NoPlace(tag, "\"" + NumberText(value) + "\" is not a CAS number");
      } else if (key == "FORMULA" && !text.empty()) {
        ReadFormula(tag, text);
      } else if (key == "SMILES" && !text.empty()) {
        SetSmiles(component_, 0, tag, text);
      } else {
        NoPlace(tag);
      }
    }
  }

  // "C_{2}H_{6}O_{1}" is C2H6O.
  void ReadFormula(std::string const& tag, std::string const& text) {
    std::string plain;
    for (char const letter : text) {
      if (std::string("_{}").find(letter) == std::string::npos) plain += letter;
    }
    SetFormula(component_, 0, tag, plain);
  }

  json const* Eos() const {
    json const* const all = Member(&fluid_, "EOS");
    return all != nullptr && all->is_array() && !all->empty() ? &all->front() : nullptr;
  }

  void ReadConstants() {
    for (FluidMember const& one : kMembers) {
      bool const isOfEos = *one.part == '\0';
      json const* const from = isOfEos ? Eos() : Member(Member(&fluid_, "STATES"), one.part);
      json const* const value = Member(from, one.member);
      if (value == nullptr) continue;
      std::string const tag = isOfEos ? "EOS." + std::string(one.member)
                                      : "STATES." + std::string(one.part) + "." + one.member;
      std::string unit = StringOf(Member(from, std::string(one.member) + "_units"));
      if (unit.empty() || (unit == "-" && *one.unit == '\0')) unit = one.unit;
      AddConstant(component_, one.keyword, {0, tag, NumberText(*value), unit});
    }
  }

  // The critical volume is the inverse of the density.
  void ReadVolume() {
    json const* const critical = Member(Member(&fluid_, "STATES"), "critical");
    json const* const value = Member(critical, "rhomolar");
    if (value == nullptr) return;
    std::size_t const origin =
        component_.Note(0, "STATES.critical.rhomolar", Fate::kConverted, "VC");
    ForeignDatum& datum = component_.data[origin];
    std::string const unit = StringOf(Member(critical, "rhomolar_units"));
    try {
      if (!unit.empty() && unit != "mol/m^3") throw Failure(unit + " is not mol/m^3");
      double const density = value->is_number() ? value->get<double>() : 0.0;
      if (!(density > 0.0) || !std::isfinite(density)) {
        throw Failure("\"" + NumberText(*value) + "\" is not a density");
      }
      double const volume = 1000.0 / density;
      CheckForeign(volume, "VC");
      component_.constants.push_back({FindConstant("VC"), volume, origin});
      datum.what = NumberText(*value) + " mol/m^3 is " + Digits(volume) + " m3/kg-mol";
    } catch (Failure const& failure) {
      datum.fate = Fate::kRefused;
      datum.what = failure.what();
    }
  }

  void NoPlace(std::string const& tag, std::string const& why = "a component has no such datum") {
    component_.Note(0, tag, Fate::kNoPlace, "", why);
  }

  void NoteRest() {
    if (json const* const lines = Member(&fluid_, "ANCILLARIES"); lines && lines->is_object()) {
      for (auto const& [key, value] : lines->items()) {
        NoPlace("ANCILLARIES." + key, "a line of saturation has no form here");
      }
    }
    if (json const* const transport = Member(&fluid_, "TRANSPORT");
        transport && transport->is_object()) {
      for (auto const& [key, value] : transport->items()) NoPlace("TRANSPORT." + key);
    }
    if (json const* const states = Member(&fluid_, "STATES"); states && states->is_object()) {
      for (auto const& [key, value] : states->items()) {
        if (key != "critical" && key != "triple_liquid") NoPlace("STATES." + key);
      }
    }
    if (Eos() == nullptr || !Eos()->is_object()) return;
    for (auto const& [key, value] : Eos()->items()) {
      bool const isUsed = key == "molar_mass" || key == "acentric" || key == "Ttriple";
      bool const isUnit = key.size() > 6 && key.compare(key.size() - 6, 6, "_units") == 0;
      if (!isUsed && !isUnit) NoPlace("EOS." + key);
    }
  }

  json const& fluid_;
  ForeignComponent component_;
};

}  // namespace

ForeignFile ReadCoolProp(std::string const& path, ForeignOptions const& /*options*/) {
  json const root = ParseFluids(path);
  ForeignFile file;
  auto const add = [&](json const& fluid, std::string const& where) {
    bool const isFluid = Member(&fluid, "INFO") != nullptr;
    if (!isFluid) throw Failure(path + where + ": is not a fluid with INFO");
    file.components.push_back(FluidReader(fluid).Read());
  };
  if (!root.is_array()) {
    add(root, "");
    return file;
  }
  for (std::size_t i = 0; i < root.size(); ++i) add(root[i], ", fluid " + std::to_string(i + 1));
  if (file.components.empty()) throw Failure(path + ": has no fluids");
  return file;
}

}  // namespace zel::desk
