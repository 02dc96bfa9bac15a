#include "item_values.h"

#include <algorithm>

#include "fields.h"
#include "pure_component.h"

namespace zelhost {
namespace {

std::string JoinedText(std::vector<std::string> const& words) {
  std::string text;
  for (std::string const& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

// A pure component shows its values through another face.
class ComponentValues {
 public:
  explicit ComponentValues(zel::IZelBankDef& item) {
    void* face = nullptr;
    if (item.QueryInterface(zel::IID_IZelPureComp, &face) == zel::kStatusOk) {
      component_.reset(static_cast<zel::IZelPureComp*>(face));
    }
  }
  explicit operator bool() const { return component_ != nullptr; }

  std::vector<NamedValue> Take() {
    Identity();
    Constants();
    Curves();
    return std::move(values_);
  }

 private:
  struct Releaser {
    void operator()(zel::IZelPureComp* face) const { face->Release(); }
  };

  void Put(std::string name, Cell value) {
    if (!std::holds_alternative<std::monostate>(value)) {
      values_.push_back({std::move(name), std::move(value)});
    }
  }

  void Identity() {
    std::int32_t number = 0, cas = 0, code = 0;
    char ids[12][9] = {};
    char name[41] = {};
    char formula[21] = {};
    std::uint8_t keep = 0;
    component_->GetIdentity(&number, &cas, &code, ids, name, formula, &keep);
    std::vector<std::string> words;
    for (char const* id : ids) {
      if (*id != '\0') words.emplace_back(id);
    }
    Put("number", std::int64_t{number});
    Put("name", Text(name));
    Put("formula", Text(formula));
    Put("CAS number", Text(static_cast<char const*>(zel::casn(cas))));
    Put("IDs", Text(JoinedText(words)));
    Put("code", std::int64_t{code});
    char smiles[101] = {};
    component_->GetSmiles(smiles);
    Put("SMILES", Text(smiles));
    std::int32_t phase = 0;
    component_->GetPhase(&phase);
    Put("phase", std::int64_t{phase});
    for (std::uint32_t model = 0; model < 7; ++model) {
      std::int32_t count = 0;
      std::int32_t groups[10] = {};
      std::int32_t counts[10] = {};
      if (component_->GetRawStructure(model, &count, groups, counts) != zel::kStatusOk) continue;
      std::string text;
      for (std::int32_t i = 0; i < count; ++i) {
        text +=
            (text.empty() ? "" : " ") + std::to_string(counts[i]) + "x" + std::to_string(groups[i]);
      }
      Put("groups of model " + std::to_string(model), Text(text));
    }
  }

  void Constants() {
    for (auto const& row : zelhost::Constants()) {
      double value = zel::gen_GetUndefDouble();
      component_->GetProperty(row.index, &value);
      Put(row.keyword, Number(value));
      std::uint32_t code = 0;
      component_->GetPropertyRefCode(row.index, &code);
      if (code != 0) Put(row.keyword + std::string(" code"), std::int64_t{code});
    }
  }

  void Curves() {
    for (auto const& row : Correlations()) {
      std::int32_t equation = 0, tempUnit = 0, propUnit = 0, log = 0, basis = 0, count = 0;
      double factor = 1.0, tMin = 0.0, tMax = 0.0;
      double coefficients[15] = {};
      zel::ZelStatus const status =
          component_->GetCorrelation(IndexOf(row), &equation, &tempUnit, &propUnit, &factor, &log,
                                     &basis, &count, &tMin, &tMax, coefficients);
      if (status == zel::kStatusNothingNew || equation == 0) continue;
      std::string const name = row.name;
      Put(name + " equation", std::int64_t{equation});
      Put(name + " from T", Number(tMin));
      Put(name + " to T", Number(tMax));
      Put(name + " T in", std::string(TemperatureUnit(tempUnit)));
      Put(name + " unit", std::int64_t{propUnit});
      Put(name + " log basis", std::int64_t{log});
      Put(name + " basis", std::int64_t{basis});
      for (int i = 0; i < std::clamp(count, 0, 15); ++i) {
        Put(name + " C" + std::to_string(i + 1), Number(coefficients[i]));
      }
      std::uint32_t code = 0;
      component_->GetCorrelationRefCode(IndexOf(row), &code);
      if (code != 0) Put(name + " code", std::int64_t{code});
    }
  }

  std::unique_ptr<zel::IZelPureComp, Releaser> component_;
  std::vector<NamedValue> values_;
};

}  // namespace

std::vector<NamedValue> ValuesOf(zel::IZelBankDef& item) {
  if (ComponentValues component(item); component) return component.Take();
  std::vector<NamedValue> values;
  for (Field const& field : FieldsOf(item)) values.push_back({field.name, ValueOf(item, field)});
  return values;
}

}  // namespace zelhost
