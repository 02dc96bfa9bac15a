#include "desk/open/pure_component.h"

#include <zelaccess/Units.h>

#include <algorithm>
#include <cmath>

#include "desk/open/library.h"
#include "desk/words/letters.h"
#include "desk/words/nearest_word.h"

namespace zel::desk {
namespace {

constexpr std::size_t kSourceSize = 260;
constexpr std::size_t kCoefficients = 15;
constexpr std::uint32_t kConstantsWithCode = 50;

bool IsKnown(zel::zelConstantStates state) {
  return state == zel::constantStored || state == zel::constantFilledIn;
}

bool BeginsWith(std::string const& text, std::string const& beginning) {
  return text.compare(0, beginning.size(), beginning) == 0;
}

}  // namespace

std::vector<zel::ZelConstantInfo> const& Constants() {
  static std::vector<zel::ZelConstantInfo> const rows = [] {
    std::int32_t count = 0;
    zel::ZelConstantInfo const* const first = zel::GetConstantCatalogue(count);
    return std::vector<zel::ZelConstantInfo>(first, first + count);
  }();
  return rows;
}

std::vector<zel::ZelCorrelationInfo> const& Correlations() {
  static std::vector<zel::ZelCorrelationInfo> const rows = [] {
    std::int32_t count = 0;
    zel::ZelCorrelationInfo const* const first = zel::GetCorrelationCatalogue(count);
    return std::vector<zel::ZelCorrelationInfo>(first, first + count);
  }();
  return rows;
}

zel::ZelConstantInfo const* FindConstant(std::string const& word) {
  auto const& rows = Constants();
  auto const at = std::find_if(rows.begin(), rows.end(), [&](zel::ZelConstantInfo const& row) {
    return row.keyword == UpperCase(word);
  });
  return at == rows.end() ? nullptr : &*at;
}

zel::ZelCorrelationInfo const* FindCorrelation(std::string const& word) {
  std::string const wanted = LowerCase(word);
  zel::ZelCorrelationInfo const* found = nullptr;
  for (zel::ZelCorrelationInfo const& row : Correlations()) {
    std::string const name = LowerCase(row.name);
    if (name == wanted) return &row;
    if (wanted.empty() || !BeginsWith(name, wanted)) continue;
    if (found != nullptr) return nullptr;
    found = &row;
  }
  return found;
}

namespace {

void AddKeywords(std::vector<std::string>& words) {
  for (auto const& row : Constants()) words.emplace_back(row.keyword);
}

void AddNames(std::vector<std::string>& words) {
  for (auto const& row : Correlations()) words.emplace_back(row.name);
}

// Symbols and words of textbooks, and what they are called here.
struct Synonym {
  char const* word;
  char const* name;
};
constexpr Synonym kSynonyms[] = {
    {"tb", "NBP"},
    {"boiling", "NBP"},
    {"tm", "NMP"},
    {"melting", "NMP"},
    {"omega", "ACENTRIC"},
    {"tt", "TTP"},
    {"pt", "PTP"},
    {"psat", "VaporPressure"},
    {"pvap", "VaporPressure"},
    {"hvap", "LatentHeat"},
    {"dhvap", "LatentHeat"},
    {"rho", "LiquidDensity"},
    {"density", "LiquidDensity"},
    {"sigma", "SurfaceTension"},
    {"viscosity", "LiquidViscosity"},
};

std::string LabelOf(std::string const& name) {
  for (auto const& row : Constants()) {
    if (name == row.keyword) return row.label;
  }
  for (auto const& row : Correlations()) {
    if (name == row.name) return row.label;
  }
  return "";
}

// The candidate that a word means as a symbol, or by what it is: "normal boiling point".
std::string Meant(std::string const& word, std::vector<std::string> const& candidates) {
  std::string const wanted = LowerCase(word);
  for (std::string const& name : candidates) {
    bool const isSynonym =
        std::any_of(std::begin(kSynonyms), std::end(kSynonyms),
                    [&](Synonym const& one) { return wanted == one.word && name == one.name; });
    if (isSynonym || wanted == LowerCase(LabelOf(name))) return name;
  }
  return "";
}

// "; did you mean NBP (normal boiling point)?" for a symbol, "; did you mean NBP?" for a misspelled
// name, or ";".
std::string Suggestion(std::string const& word, std::vector<std::string> const& candidates) {
  std::string const meant = Meant(word, candidates);
  if (meant.empty()) return DidYouMean(word, candidates);
  return "; did you mean " + meant + " (" + LabelOf(meant) + ")?";
}

}  // namespace

std::string DidYouMeanConstant(std::string const& word) {
  std::vector<std::string> words;
  AddKeywords(words);
  return Suggestion(word, words);
}

std::string DidYouMeanCorrelation(std::string const& word) {
  std::vector<std::string> words;
  AddNames(words);
  return Suggestion(word, words);
}

std::string DidYouMeanDatum(std::string const& word) {
  std::vector<std::string> words;
  AddKeywords(words);
  AddNames(words);
  return Suggestion(word, words);
}

std::uint32_t IndexOf(zel::ZelCorrelationInfo const& correlation) {
  return static_cast<std::uint32_t>(&correlation - Correlations().data());
}

std::vector<std::string> const& StructureModels() {
  static std::vector<std::string> const models = {
      "legacy", "orig-public", "orig-cons", "dort-public", "dort-cons", "lyngby", "joback"};
  return models;
}

PureComponent::PureComponent() : face_(kPureType, zel::IID_IZelPureComp) {
  if (!face_) throw std::bad_alloc();
}

Identity PureComponent::ReadIdentity() const {
  Identity identity;
  std::int32_t cas = 0;
  char ids[12][kNameSize] = {};
  char name[41] = {};
  char formula[21] = {};
  std::uint8_t keepFormula = 0;
  face_->GetIdentity(&identity.number, &cas, &identity.refCode, ids, name, formula, &keepFormula);
  identity.cas = static_cast<char const*>(zel::casn(cas));
  for (char const* id : ids) {
    if (*id != '\0') identity.ids.emplace_back(id);
  }
  identity.name = name;
  identity.formula = formula;
  identity.keepsFormula = keepFormula != 0;
  return identity;
}

zel::ZelIdentity PureComponent::Compared() const {
  zel::ZelIdentity identity;
  zel::GetComponentIdentity(face_.operator->(), identity);
  return identity;
}

std::string PureComponent::Smiles() const {
  char smiles[101] = {};
  face_->GetSmiles(smiles);
  return smiles;
}

std::int32_t PureComponent::Phase() const {
  std::int32_t phase = 0;
  face_->GetPhase(&phase);
  return phase;
}

std::string PureComponent::Groups(std::uint32_t model) const {
  std::int32_t count = 0;
  std::int32_t groups[10] = {};
  std::int32_t counts[10] = {};
  if (face_->GetRawStructure(model, &count, groups, counts) != zel::kStatusOk) return "";
  std::string text;
  for (std::int32_t i = 0; i < count; ++i) {
    text += (text.empty() ? "" : " ") + std::to_string(counts[i]) + "x" + std::to_string(groups[i]);
  }
  return text;
}

void PureComponent::Complete() {
  void* face = nullptr;
  if (face_.Def()->QueryInterface(zel::IID_IZelBankIO, &face) != zel::kStatusOk) return;
  auto* const io = static_cast<zel::IZelBankIO*>(face);
  io->Complete();
  io->Release();
}

double PureComponent::Constant(std::uint32_t index) const {
  double value = zel::gen_GetUndefDouble();
  face_->GetProperty(index, &value);
  return value;
}

zel::zelConstantStates PureComponent::State(std::uint32_t index) const {
  return zel::GetConstantState(face_.operator->(), index);
}

double PureComponent::Completed(std::uint32_t index) const {
  double value = zel::gen_GetUndefDouble();
  if (IsKnown(State(index))) face_->GetCompleted(index, &value);
  return value;
}

std::uint32_t PureComponent::ConstantCode(std::uint32_t index) const {
  std::uint32_t code = 0;
  if (index < kConstantsWithCode) face_->GetPropertyRefCode(index, &code);
  return code;
}

std::string PureComponent::ConstantSource(std::uint32_t index) const {
  if (!IsKnown(State(index))) return "";
  char text[kSourceSize] = {};
  std::uint8_t isProtected = 0;
  face_->GetPropertySource(index, text, &isProtected);
  // Critical constants that are computed from each other have no label.
  bool const isCritical = index >= zel::propertyTC && index <= zel::propertyZC;
  if (*text == '\0' && isCritical) {
    return "from the others of TC,PC,VC,ZC";
  }
  return text;
}

Curve PureComponent::ReadCurve(std::uint32_t index) const {
  Curve curve;
  double factor = 1.0;
  std::int32_t count = 0;
  double coefficients[kCoefficients] = {};
  zel::ZelStatus const status = face_->GetCorrelation(
      index, &curve.equation, &curve.tempUnit, &curve.propUnit, &factor, &curve.logBasis,
      &curve.basis, &count, &curve.tMin, &curve.tMax, coefficients);
  curve.given = status != zel::kStatusFailed;
  // The call fails both for a missing record and for one that is not returned; only the latter has
  // an equation.
  curve.present = status == zel::kStatusOk || (!curve.given && curve.equation != 0);
  if (!curve.present) return curve;
  auto const used =
      static_cast<std::size_t>(std::clamp(count, 0, static_cast<std::int32_t>(kCoefficients)));
  curve.coefficients.assign(coefficients, coefficients + used);
  if (index < zel::correlationCharacteristicVolume)
    face_->GetCorrelationRefCode(index, &curve.refCode);
  char text[kSourceSize] = {};
  std::uint8_t isProtected = 0;
  face_->GetCorrelationSource(index, text, &isProtected);
  curve.source = text;
  return curve;
}

Point PureComponent::At(std::uint32_t index, double temperature, std::int32_t order) const {
  Point point;
  point.there = zel::GetCorrelationValue(face_.operator->(), index, temperature, order, point.value,
                                         point.slope, point.status);
  return point;
}

double SlopePerKelvin(PureComponent const& component, std::uint32_t index, Curve const& curve,
                      double temperature, int order) {
  double const slope = component.At(index, temperature, order).slope;
  double step = 1.0;
  zel::ConvertUnits("TempDiff", "K", TemperatureUnit(curve.tempUnit), &step, 1);
  return zel::gen_IsUndefDouble(slope) ? slope : slope * std::pow(step, order);
}

std::string FaultOf(Curve const& curve) {
  char text[120];
  zel::GetCorrelationFault(curve.equation, static_cast<std::int32_t>(curve.coefficients.size()),
                           text);
  return text;
}

char const* TemperatureUnit(std::int32_t code) {
  switch (code) {
    case 11: return "C";
    case 12: return "R";
    case 13: return "F";
    default: return "K";
  }
}

Cell RangeOf(Curve const& curve, DisplayUnits const& units) {
  std::string const stored = TemperatureUnit(curve.tempUnit);
  Cell const low = Number(units.Shown(curve.tMin, stored));
  Cell const high = Number(units.Shown(curve.tMax, stored));
  bool const hasLow = !std::holds_alternative<std::monostate>(low);
  bool const hasHigh = !std::holds_alternative<std::monostate>(high);
  if (!hasLow && !hasHigh) return {};
  std::string const unit = " " + units.UnitFor(stored);
  if (!hasHigh) return "from " + CellText(low) + unit;
  if (!hasLow) return "up to " + CellText(high) + unit;
  return CellText(low) + " to " + CellText(high) + unit;
}

Cell UnitOf(Curve const& curve) {
  std::string const name = zel::GetUnitCodeName(curve.propUnit);
  if (!name.empty()) return name;
  if (curve.propUnit == 0) return {};
  return "code " + std::to_string(curve.propUnit);
}

std::string UnitPerMole(std::string const& unit) {
  std::string out;
  for (std::size_t at = 0; at < unit.size();) {
    std::size_t const end = std::min(unit.find_first_of("/-. ", at), unit.size());
    std::string const word = unit.substr(at, end - at);
    out += word;
    for (char const* const mass : {"g", "kg", "lb", "klb", "oz", "ton", "tonm", "tonl"}) {
      if (word == mass && unit.compare(end, 4, "-mol") != 0) out += "-mol";
    }
    if (end < unit.size()) out += unit[end];
    at = end + 1;
  }
  return out;
}

Cell BasisOf(Curve const& curve) {
  if (curve.basis == 1) return "mole";
  if (curve.basis == 2) return "mass";
  return {};
}

Cell PhasesOf(PureComponent const& component) {
  std::int32_t const phase = component.Phase();
  std::vector<std::string> phases;
  if ((phase & 1) != 0) phases.emplace_back("vapor");
  if ((phase & 2) != 0) phases.emplace_back("liquid");
  if ((phase & 4) != 0) phases.emplace_back("solid");
  return Texts(phases);
}

}  // namespace zel::desk
