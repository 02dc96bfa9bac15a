#include "banks/catalogue.h"

#include <algorithm>

#include "frame/ascii.h"
#include "zelaccess/Banks.h"

namespace zel {
namespace {

constexpr long kBankTypes = 50;

// In the order of GetBankTypeList:
// keyword, description, key kind, key words, least key words, pair rule, formats, file-resident,
// listed, references
constexpr BankType kCatalogue[kBankTypes] = {
    {"ALPHA", "Alpha coefficients", kComponentKeys, 1, 1, kNotSorted, 1, 0, 1, {}},
    {"AZEOTROP", "Azeotrope binary data", kComponentKeys, 2, 2, kAsymmetric, 1, 0, 1, {}},
    {"BWRS", "Bwrs binary data", kComponentKeys, 2, 2, kSymmetric, 1, 0, 1, {}},
    {"PUREBWRS", "Bwrs pure component data", kComponentKeys, 1, 1, kNotSorted, 1, 0, 1, {}},
    {"COSTALD", "Costald data", kComponentKeys, 1, 1, kNotSorted, 1, 0, 1, {}},
    {"GRPDESC", "UNIFAC Group Description bank", kNumericKey, 2, 1, kNotSorted, 1, 0, 1, {}},
    {"HENRY", "Henry's law data", kComponentKeys, 2, 2, kOrdered, 1, 0, 1, {}},
    {"HMIX", "Heat of mixing data", kComponentKeys, 2, 2, kAsymmetric, 1, 0, 1, {}},
    {"HOCV", "Hayden-O'Connell data", kComponentKeys, 2, 1, kSymmetric, 1, 0, 1, {}},
    {"IDIMER", "IDimer binary data", kComponentKeys, 2, 1, kSymmetric, 1, 0, 1, {}},
    {"IDIMPURE", "IDimer pure component data", kComponentKeys, 1, 1, kNotSorted, 1, 0, 1, {}},
    {"LKP", "Lkp binary data", kComponentKeys, 2, 2, kSymmetric, 1, 0, 1, {}},
    {"MAPORW",
     "Client to Ordwin component mapping data",
     kCharacterKey,
     3,
     3,
     kOrdered,
     1,
     0,
     0,
     {}},
    {"MARGULES", "Margules VLE binary data", kComponentKeys, 2, 2, kAsymmetric, 1, 0, 1, {}},
    {"MWPR", "Pr Kij-Mw curves", kComponentKeys, 1, 1, kNotSorted, 1, 0, 0, {}},
    {"MWSRK", "Srk Kij-Mw curves", kComponentKeys, 1, 1, kNotSorted, 1, 0, 0, {}},
    {"NRTL", "Nrtl VLE binary data", kComponentKeys, 2, 2, kAsymmetric, 2, 0, 1, {}},
    {"NRTLLL", "Nrtl LLE binary data", kComponentKeys, 2, 2, kAsymmetric, 2, 0, 1, {}},
    {"OCTANE", "Octane number data", kComponentKeys, 1, 1, kNotSorted, 1, 0, 1, {}},
    {"OLI", "Oli to Ordwin component mapping data", kCharacterKey, 4, 4, kOrdered, 1, 0, 0, {}},
    {"PCSAFT", "PcSaft data", kComponentKeys, 2, 2, kSymmetric, 1, 0, 1, {}},
    {"PCSAFTPU", "PcSaft pure component data", kComponentKeys, 1, 1, kNotSorted, 1, 0, 1, {}},
    {"PENELOUX", "Peneloux pure component data", kComponentKeys, 1, 1, kNotSorted, 1, 0, 1, {}},
    {"PPR78", "PPR78 Group Interaction bank", kNumericKey, 2, 2, kSymmetric, 1, 0, 0, {}},
    {"PRH", "PrH binary data", kComponentKeys, 2, 2, kAsymmetric, 1, 0, 1, {}},
    {"PRM", "PrM binary data", kComponentKeys, 2, 2, kAsymmetric, 1, 0, 1, {}},
    {"PRO", "Pr (Original) binary data", kComponentKeys, 2, 2, kSymmetric, 1, 0, 1, {}},
    {"PRP", "PrP binary data", kComponentKeys, 2, 2, kAsymmetric, 1, 0, 1, {}},
    {"PSRK", "Predictive SRK data", kNumericKey, 2, 0, kAsymmetric, 2, 0, 1, {"PURECOMP", "ALPHA"}},
    {"PURECOMP", "Pure component data", kComponentKeys, 1, 1, kNotSorted, 1, 1, 1, {}},
    {"RACKETT", "Rackett data", kComponentKeys, 1, 1, kNotSorted, 1, 0, 1, {}},
    {"SRKH", "SrkH binary data", kComponentKeys, 2, 2, kAsymmetric, 1, 0, 1, {}},
    {"SRKM", "SrkM binary data", kComponentKeys, 2, 2, kAsymmetric, 2, 0, 1, {}},
    {"SRKO", "Srk (Original) binary data", kComponentKeys, 2, 2, kSymmetric, 1, 0, 1, {}},
    {"SRKP", "SrkP binary data", kComponentKeys, 2, 2, kAsymmetric, 1, 0, 1, {}},
    {"SRKS", "SrkS binary data", kComponentKeys, 2, 2, kAsymmetric, 1, 0, 1, {}},
    {"ORWMAP", "Ordwin to Client component mapping data", kNumericKey, 1, 1, kOrdered, 1, 0, 0, {}},
    {"STRUCT", "Structural data", kComponentKeys, 1, 1, kNotSorted, 1, 0, 1, {}},
    {"UNF2PUR",
     "Unifac pure group parameters for UFT2",
     kNumericKey,
     1,
     1,
     kNotSorted,
     1,
     0,
     0,
     {}},
    {"UNFDORT", "Dortmund Unifac data", kNumericKey, 2, 0, kAsymmetric, 1, 0, 1, {}},
    {"UNFLYNG", "Lyngby Unifac data", kNumericKey, 2, 0, kAsymmetric, 1, 0, 1, {}},
    {"UNFORIG", "Original Unifac data", kNumericKey, 2, 0, kAsymmetric, 1, 0, 1, {}},
    {"UNFMOD", "Modified Unifac data", kNumericKey, 2, 0, kAsymmetric, 1, 0, 1, {}},
    {"UNFPURE", "Unifac pure group parameters", kNumericKey, 1, 1, kNotSorted, 1, 0, 0, {}},
    {"UNIFAC", "Unifac binary group data", kNumericKey, 2, 2, kAsymmetric, 1, 0, 0, {}},
    {"UNIQUAC", "Uniquac VLE binary data", kComponentKeys, 2, 2, kAsymmetric, 1, 0, 1, {}},
    {"UNIQLL", "Uniquac LLE binary data", kComponentKeys, 2, 2, kAsymmetric, 1, 0, 1, {}},
    {"VANLAAR", "vanLaar VLE binary data", kComponentKeys, 2, 2, kAsymmetric, 1, 0, 1, {}},
    {"VIRIAL", "Virial coefficients", kComponentKeys, 1, 1, kNotSorted, 1, 0, 1, {}},
    {"WILSON", "Wilson VLE binary data", kComponentKeys, 2, 2, kAsymmetric, 2, 0, 1, {}},
};

}  // namespace

BankType const* FindBankType(std::string_view keyword) noexcept {
  for (BankType const& type : kCatalogue) {
    if (SameText(type.keyword, keyword)) return &type;
  }
  return nullptr;
}

long GetBankTypeCount() { return kBankTypes; }

void GetBankTypeList(long count, char (*list)[9]) {
  for (long i = 0; i < count; ++i) {
    std::string_view const keyword = i < kBankTypes ? kCatalogue[i].keyword : "";
    CopyText(keyword, list[i], sizeof list[i]);
  }
}

long GetRefBankTypeCount(char const* keyword) {
  BankType const* type = FindBankType(TextOrEmpty(keyword));
  if (type == nullptr) return 0;
  return std::find(std::begin(type->references), std::end(type->references), "") -
         std::begin(type->references);
}

void GetRefBankTypeList(char const* keyword, long count, char (*list)[9]) {
  BankType const* type = FindBankType(TextOrEmpty(keyword));
  long const found = std::min(count, GetRefBankTypeCount(keyword));
  for (long i = 0; i < found; ++i) CopyText(type->references[i], list[i], sizeof list[i]);
}

}  // namespace zel
