#include "desk/open/item_values.h"

#include <algorithm>

#include "desk/open/fields.h"

namespace zel::desk {
namespace {

// The logarithm whose value the equation gives.
Cell LogarithmOf(Curve const& curve) {
  if (curve.logBasis == 1) return "natural";
  if (curve.logBasis == 2) return "decimal";
  return {};
}

class ComponentValues {
 public:
  explicit ComponentValues(PureComponent const& component) : component_(component) {}

  std::vector<NamedValue> Take() {
    PutIdentity();
    PutConstants();
    for (auto const& row : Correlations()) PutCurve(row.name, component_.ReadCurve(IndexOf(row)));
    return std::move(values_);
  }

 private:
  void Put(std::string name, Cell value, std::int64_t code = 0, std::string unit = "") {
    if (!std::holds_alternative<std::monostate>(value) || code != 0) {
      values_.push_back({std::move(name), std::move(value), code, std::move(unit)});
    }
  }

  void PutIdentity() {
    Identity const identity = component_.ReadIdentity();
    Put("number", std::int64_t{identity.number});
    Put("name", Text(identity.name));
    Put("formula", Text(identity.formula));
    Put("formula as given", identity.keepsFormula);
    Put("CAS number", Text(identity.cas));
    Put("IDs", Texts(identity.ids));
    Put("code", std::int64_t{identity.refCode});
    Put("SMILES", Text(component_.Smiles()));
    Put("phase", PhasesOf(component_), component_.Phase());
    for (std::uint32_t model = 0; model < StructureModels().size(); ++model) {
      Put("groups of model " + StructureModels()[model], Text(component_.Groups(model)));
    }
  }

  void PutConstants() {
    for (auto const& row : Constants()) {
      Put(row.keyword, Number(component_.Constant(row.index)), 0, row.unit);
      Put(row.keyword + std::string(" code"), Code(component_.ConstantCode(row.index)));
    }
  }

  void PutCurve(std::string const& name, Curve const& curve) {
    if (!curve.present) return;
    Put(name + " equation", std::int64_t{curve.equation});
    std::string const letter = TemperatureUnit(curve.tempUnit);
    Put(name + " from T", Number(curve.tMin), 0, letter);
    Put(name + " to T", Number(curve.tMax), 0, letter);
    Put(name + " T in", std::string(TemperatureUnit(curve.tempUnit)));
    Put(name + " unit", UnitOf(curve), curve.propUnit);
    Put(name + " log basis", LogarithmOf(curve), curve.logBasis);
    Put(name + " basis", BasisOf(curve), curve.basis);
    for (std::size_t i = 0; i < curve.coefficients.size(); ++i) {
      Put(name + " C" + std::to_string(i + 1), Number(curve.coefficients[i]));
    }
    Put(name + " code", Code(curve.refCode));
  }

  PureComponent const& component_;
  std::vector<NamedValue> values_;
};

}  // namespace

std::pair<Cell, Cell> Beside(NamedValue const& one, NamedValue const& other) {
  if (one.value != other.value || one.code == other.code) return {one.value, other.value};
  auto const withCode = [](NamedValue const& named) {
    return CellText(named.value) + " (code " + std::to_string(named.code) + ")";
  };
  return {withCode(one), withCode(other)};
}

std::vector<DifferingValue> DifferingValues(std::vector<NamedValue> const& one,
                                            std::vector<NamedValue> const& other) {
  auto const find = [](std::vector<NamedValue> const& values, std::string const& name) {
    return std::find_if(values.begin(), values.end(),
                        [&](NamedValue const& value) { return value.name == name; });
  };
  std::vector<DifferingValue> found;
  auto const put = [&](NamedValue const& here, NamedValue const& there) {
    if (here == there) return;
    auto [first, second] = Beside(here, there);
    std::string const& unit = here.unit.empty() ? there.unit : here.unit;
    if (here.unit == there.unit || here.unit.empty() || there.unit.empty()) {
      found.push_back({here.name, std::move(first), std::move(second), unit,
                       here.isNoteUnit || there.isNoteUnit});
    } else {
      found.push_back(
          {here.name, CellText(first) + " " + here.unit, CellText(second) + " " + there.unit, ""});
    }
  };
  for (NamedValue const& value : one) {
    auto const at = find(other, value.name);
    put(value, at == other.end() ? NamedValue{value.name, {}} : *at);
  }
  for (NamedValue const& value : other) {
    if (find(one, value.name) == one.end()) put({value.name, {}}, value);
  }
  return found;
}

std::vector<NamedValue> ValuesOf(zel::IZelBankDef& item) { return ValuesOf(item, FieldsOf(item)); }

std::vector<NamedValue> ValuesOf(zel::IZelBankDef& item, std::vector<Field> const& fields) {
  std::vector<NamedValue> values;
  values.reserve(fields.size());
  for (Field const& field : fields) {
    values.push_back({field.name, ValueOf(item, field), 0, field.unit, field.isNoteUnit});
  }
  return values;
}

std::vector<NamedValue> ValuesOf(PureComponent const& component) {
  return ComponentValues(component).Take();
}

}  // namespace zel::desk
