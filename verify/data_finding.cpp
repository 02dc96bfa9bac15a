#include "verify/data_finding.h"

#include <algorithm>

#include "frame/number_text.h"
#include "verify/fingerprint.h"

namespace zel {

std::string Shown(double value) {
  constexpr int kDigits = 7;
  return RealText(value, kDigits);
}

// Texts that were filled in are not searched for names.
std::string DataFinding::Sentence(std::string_view pattern) const {
  auto const inUnit = [&](std::string const& number) {
    return unit_.empty() ? number : number + " " + unit_;
  };
  auto const member = [&](std::string_view name) -> std::string {
    if (name == "datum") return datum_;
    if (name == "value") return inUnit(valueText_);
    if (name == "temperature") return Shown(temperature_) + " K";
    if (name == "expected") return inUnit(expected_.Text());
    if (name == "min") return inUnit(Shown(expected_.Min()));
    if (name == "max") return inUnit(Shown(expected_.Max()));
    if (name == "against") return against_;
    return "{" + std::string(name) + "}";
  };
  std::string text;
  for (std::size_t open; (open = pattern.find('{')) != std::string_view::npos;) {
    std::size_t const close = pattern.find('}', open);
    if (close == std::string_view::npos) break;
    text += pattern.substr(0, open);
    text += member(pattern.substr(open + 1, close - open - 1));
    pattern.remove_prefix(close + 1);
  }
  return text += pattern;
}

void DataFinding::Fill(ZelDataFinding& out) const {
  out.id = id_;
  out.datum = datum_.c_str();
  out.value = value_;
  out.valueText = valueText_.c_str();
  out.unit = unit_.c_str();
  out.temperature = temperature_;
  out.expectedMin = expected_.Min();
  out.expectedMax = expected_.Max();
  out.expectedText = expected_.Text().c_str();
  out.against = against_.c_str();
}

DataFindings::DataFindings(ZelDataFindingSink& sink, ZelDataCheckOptions const& options)
    : sink_(sink), acceptIdentity_(options.acceptIdentity) {
  for (std::int32_t i = 0; options.silent != nullptr && i < options.silentCount; ++i) {
    if (options.silent[i] != nullptr) silent_.insert(options.silent[i]);
  }
}

zelFindings DataFindings::SeverityOf(DataFinding const& finding) const {
  std::string_view const id = finding.Id();
  if (acceptIdentity_ && id == "identity") return findingWarning;
  if (finding.IsError()) return findingError;
  std::int32_t count = 0;
  ZelDataCheck const* const checks = GetDataChecks(count);
  auto const* const check =
      std::find_if(checks, checks + count, [&](ZelDataCheck const& one) { return id == one.id; });
  return check != checks + count ? check->severity : findingWarning;
}

// Errors are certain.
double DataFinding::StrengthAs(zelFindings severity) const {
  constexpr double kOfWarnings = 0.8;
  if (severity != findingWarning) return 1.0;
  return gen_IsUndefDouble(strength_) ? kOfWarnings : strength_;
}

void DataFindings::Tell(CheckedItem const& item, DataFinding const& finding,
                        std::string_view sentence) {
  if (silent_.count(std::string_view(finding.Id())) != 0) return;
  std::string const text = finding.Sentence(sentence);
  ZelDataFinding out;
  finding.Fill(out);
  out.severity = SeverityOf(finding);
  out.library = item.library.c_str();
  out.bankType = item.bank.type.c_str();
  out.bankName = item.bank.name.c_str();
  out.key = item.key.empty() ? nullptr : item.key.data();
  out.keyWords = static_cast<std::int32_t>(item.key.size());
  out.item = item.text.c_str();
  out.place = item.place.c_str();
  out.text = text.c_str();
  out.strength = finding.StrengthAs(out.severity);
  std::string const fingerprint = Fingerprint(std::string(out.id) + '\n' + item.bank.Text() + '\n' +
                                              item.text + '\n' + out.datum + '\n' + out.valueText);
  out.fingerprint = fingerprint.c_str();
  isGood_ = isGood_ && out.severity == findingWarning;
  sink_.FoundData(out);
}

void DataFindings::Cancelled(std::string const& library) {
  isGood_ = false;
  ZelDataFinding out;
  out.severity = findingNote;
  out.id = "cancelled";
  out.library = library.c_str();
  out.place = "the library";
  out.text = "the check was cancelled";
  sink_.FoundData(out);
}

void DataFindings::Damage(char const* id, std::string const& library, std::string const& place,
                          std::string const& text) {
  isGood_ = false;
  if (!damages_.insert(library + '\n' + place + '\n' + text).second) return;
  ZelDataFinding out;
  out.severity = findingDamage;
  out.id = id;
  out.library = library.c_str();
  out.place = place.c_str();
  out.text = text.c_str();
  sink_.FoundData(out);
}

}  // namespace zel
