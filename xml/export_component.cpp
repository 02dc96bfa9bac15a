#include "xml/export_component.h"

#include <algorithm>
#include <array>

#include "maint/component_identity.h"
#include "purecomp/tables.h"
#include "xml/code_words.h"
#include "xml/text_out.h"
#include "xml/unit_word_table.h"

namespace zel {

namespace {

using platform::TextFile;

constexpr std::int32_t kMostGroups = 10;
constexpr std::int32_t kMostCoefficients = 15;

class ComponentText {
 public:
  ComponentText(TextFile& out, IZelPureComp* component, std::size_t indent)
      : out_(out), component_(component), indent_{indent} {}

  void Put() {
    out_ << indent_ << "<comp>\n";
    PutIdentity();
    PutPhase();
    PutSmiles();
    for (std::uint32_t model = 0; model < kModelKeywords.size(); ++model) PutStructure(model);
    for (PropertyRow const& row : kPropertyRows) {
      if (row.index == kEndOfWritten) break;
      PutProperty(row);
    }
    for (std::uint32_t i = 0; i < kNamedCorrelations; ++i) PutCorrelation(i);
    out_ << indent_ << "</comp>\n";
  }

 private:
  // Writes an attribute, unless its value is empty.
  void PutWord(std::string_view name, std::string_view word) {
    if (!word.empty()) out_ << " " << name << "=\"" << word << "\"";
  }
  void PutDefined(std::string_view name, double value) {
    if (!gen_IsUndefDouble(value)) out_ << " " << name << "=\"" << Seven{value} << "\"";
  }
  void PutRefCode(std::uint32_t code) {
    if (code != 0) out_ << " refCode=\"" << code << "\"";
  }

  // Writes a name; a double quote, which would end the attribute, is replaced.
  void PutName(std::string_view name) {
    for (char c : name) {
      if (c == '"') {
        out_ << "%quot;";
      } else {
        out_.Put(c);
      }
    }
  }

  void PutIdentity() {
    ComponentIdentity const identity(component_);
    out_ << indent_ << "  <id number=\"" << identity.number << "\" name=\"";
    PutName(identity.name);
    out_ << "\" formula=\"" << identity.formula << "\"";
    if (identity.casNumber > 0) {
      out_ << " casNum=\"" << static_cast<char const*>(identity.Cas()) << "\"";
    }
    if (identity.refCode > 0) out_ << " refCode=\"" << identity.refCode << "\"";
    if (identity.keepFormula != 0) out_ << " keepFormula=\"1\"";
    out_ << ">\n" << indent_ << "   ";
    for (auto const& id : identity.ids) {
      if (id[0] != '\0') out_ << " " << id;
    }
    out_ << "\n" << indent_ << "  </id>\n";
  }

  void PutPhase() {
    std::int32_t phase = 0;
    component_->GetPhase(&phase);
    if (phase == kUsualPhase) return;
    std::string_view const word = WordOf(kPhaseWords, phase);
    if (!word.empty()) out_ << indent_ << "  <flags phase=\"" << word << "\" />\n";
  }

  void PutSmiles() {
    char text[101] = "";
    component_->GetSmiles(text);
    if (text[0] == '\0') return;
    out_ << indent_ << "  <smiles>\n" << indent_ << "    " << text << "\n";
    out_ << indent_ << "  </smiles>\n";
  }

  void PutStructure(std::uint32_t model) {
    std::int32_t count = 0;
    std::array<std::int32_t, kMostGroups> ids{};
    std::array<std::int32_t, kMostGroups> counts{};
    if (component_->GetRawStructure(model, &count, ids.data(), counts.data()) != kStatusOk ||
        count <= 0) {
      return;
    }
    out_ << indent_ << "  <structure";
    if (model != 0) PutWord("model", kModelKeywords[model]);
    out_ << ">\n" << indent_ << "   ";
    for (std::size_t i = 0; i < static_cast<std::size_t>(std::min(count, kMostGroups)); ++i) {
      out_ << " " << ids[i] << "(" << counts[i] << ")";
    }
    out_ << "\n" << indent_ << "  </structure>\n";
  }

  void PutProperty(PropertyRow const& row) {
    auto const index = static_cast<std::uint32_t>(row.index);
    double value = gen_GetUndefDouble();
    if (component_->GetProperty(index, &value) != kStatusOk || gen_IsUndefDouble(value)) return;
    std::uint32_t code = 0;
    component_->GetPropertyRefCode(index, &code);
    out_ << indent_ << "  <property name=\"" << row.keyword << "\" value=\"" << Seven{value}
         << "\"";
    PutRefCode(code);
    out_ << " />\n";
  }

  void PutCorrelation(std::uint32_t index) {
    std::int32_t equation, tempUnit, propUnit, logBasis, basis, count;
    double factor, tMin, tMax;
    std::array<double, kMostCoefficients> coefficients;
    if (component_->GetCorrelation(index, &equation, &tempUnit, &propUnit, &factor, &logBasis,
                                   &basis, &count, &tMin, &tMax,
                                   coefficients.data()) != kStatusOk) {
      return;
    }
    std::uint32_t code = 0;
    component_->GetCorrelationRefCode(index, &code);
    out_ << indent_ << "  <correlation name=\"" << kCorrelationRows[index].name;
    out_ << "\" equation=\"" << equation << "\"";
    PutWord("tempUnit", WordOf(kTempUnitWords, tempUnit));
    PutWord("propUnit", UnitWordOf(propUnit));
    PutWord("logBasis", WordOf(kLogBasisWords, logBasis));
    PutWord("moleWtBasis", WordOf(kBasisWords, basis));
    PutDefined("tMin", tMin);
    PutDefined("tMax", tMax);
    PutRefCode(code);
    out_ << ">\n" << indent_ << "   ";
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
      out_ << " " << Seven{coefficients[i]};
    }
    out_ << "\n" << indent_ << "  </correlation>\n";
  }

  TextFile& out_;
  IZelPureComp* component_;
  Blanks indent_;
};

}  // namespace

void PutComponent(TextFile& out, IZelPureComp* component, std::size_t indent) {
  ComponentText(out, component, indent).Put();
}

}  // namespace zel
