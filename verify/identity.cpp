// Which substance a component is, and whether two sources contradict each other about it.
#include "zelaccess/Identity.h"

#include <string>
#include <string_view>

#include "frame/ascii.h"
#include "verify/composition.h"
#include "zelaccess/Casn.h"
#include "zelaccess/PureComp.h"

namespace zel {

bool GetComponentIdentity(IZelPureComp* component, ZelIdentity& identity) {
  identity = {};
  if (component == nullptr) return false;
  std::int32_t refCode = 0;
  std::uint8_t keepFormula = 0;
  return component->GetIdentity(&identity.number, &identity.casNumber, &refCode, identity.ids,
                                identity.name, identity.formula, &keepFormula) != kStatusFailed;
}

void GetIdentityText(ZelIdentity const& identity, char* text) {
  constexpr std::size_t kSize = 120;
  std::string labels;
  auto const add = [&](std::string const& label) {
    if (!label.empty()) labels += (labels.empty() ? "" : ", ") + label;
  };
  if (identity.number != 0) add(std::to_string(identity.number));
  add(identity.ids[0]);
  add(static_cast<char const*>(casn(identity.casNumber)));
  add(identity.formula);
  std::string const name = *identity.name != '\0' ? identity.name : "a component without a name";
  GiveText(labels.empty() ? name : name + " (" + labels + ")", text, kSize);
}

std::int32_t CompareIdentities(ZelIdentity const& one, ZelIdentity const& other) {
  std::int32_t conflicts = identityAgrees;
  bool const haveCas = one.casNumber != 0 && other.casNumber != 0;
  if (haveCas && one.casNumber != other.casNumber) conflicts |= identityCas;
  if (!FormulasAgree(one.formula, other.formula)) conflicts |= identityFormula;
  return conflicts;
}

bool FormulasAgree(char const* one, char const* other) {
  std::string_view const a = one != nullptr ? one : "";
  std::string_view const b = other != nullptr ? other : "";
  if (a.empty() || b.empty()) return true;
  Composition atomsOfA;
  Composition atomsOfB;
  bool const isFormulaA = CompositionOf(a, atomsOfA);
  bool const isFormulaB = CompositionOf(b, atomsOfB);
  if (isFormulaA != isFormulaB) return false;
  return isFormulaA ? atomsOfA == atomsOfB : SameText(a, b);
}

}  // namespace zel
