#include "banks/catalogue.h"

#include <algorithm>
#include <iterator>
#include <new>

#include "frame/ascii.h"
#include "frame/limits.h"

namespace zel {
namespace {

// In the order of GetBankTypeList:
// keyword, description, key kind, key words, least key words, pair rule, file-resident, listed,
// factory, references
constexpr BankType kCatalogue[] = {
    {"ALPHA", "Alpha coefficients", kComponentKeys, 1, 1, kNotSorted, 0, 1, NewAlpha},
    {"AZEOTROP", "Azeotrope binary data", kComponentKeys, 2, 2, kAsymmetric, 0, 1, NewAzeo},
    {"BWRS", "Bwrs binary data", kComponentKeys, 2, 2, kSymmetric, 0, 1, NewBwrs},
    {"PUREBWRS", "Bwrs pure component data", kComponentKeys, 1, 1, kNotSorted, 0, 1, NewBwrsPure},
    {"COSTALD", "Costald data", kComponentKeys, 1, 1, kNotSorted, 0, 1, NewCostald},
    {"GRPDESC", "UNIFAC Group Description bank", kNumericKey, 2, 1, kNotSorted, 0, 1, NewGroupDes},
    {"HENRY", "Henry's law data", kComponentKeys, 2, 2, kOrdered, 0, 1, NewHenry},
    {"HMIX", "Heat of mixing data", kComponentKeys, 2, 2, kAsymmetric, 0, 1, NewHMix},
    {"HOCV", "Hayden-O'Connell data", kComponentKeys, 2, 1, kSymmetric, 0, 1, NewHocV},
    {"IDIMER", "IDimer binary data", kComponentKeys, 2, 1, kSymmetric, 0, 1, NewIDimer},
    {"IDIMPURE", "IDimer pure component data", kComponentKeys, 1, 1, kNotSorted, 0, 1, NewIDimPure},
    {"LKP", "Lkp binary data", kComponentKeys, 2, 2, kSymmetric, 0, 1, NewLkp},
    {"MAPORW", "Client to Ordwin component mapping data", kCharacterKey, 3, 3, kOrdered, 0, 0,
     NewMapOrw},
    {"MARGULES", "Margules VLE binary data", kComponentKeys, 2, 2, kAsymmetric, 0, 1, NewMargules},
    {"MWPR", "Pr Kij-Mw curves", kComponentKeys, 1, 1, kNotSorted, 0, 0, NewMwPr},
    {"MWSRK", "Srk Kij-Mw curves", kComponentKeys, 1, 1, kNotSorted, 0, 0, NewMwSrk},
    {"NRTL", "Nrtl VLE binary data", kComponentKeys, 2, 2, kAsymmetric, 0, 1, NewNrtl},
    {"NRTLLL", "Nrtl LLE binary data", kComponentKeys, 2, 2, kAsymmetric, 0, 1, NewNrtlLL},
    {"OCTANE", "Octane number data", kComponentKeys, 1, 1, kNotSorted, 0, 1, NewOctane},
    {"OLI", "Oli to Ordwin component mapping data", kCharacterKey, 4, 4, kOrdered, 0, 0, NewOli},
    {"PCSAFT", "PcSaft data", kComponentKeys, 2, 2, kSymmetric, 0, 1, NewPcSaft},
    {"PCSAFTPU", "PcSaft pure component data", kComponentKeys, 1, 1, kNotSorted, 0, 1,
     NewPcSaftPure},
    {"PENELOUX", "Peneloux pure component data", kComponentKeys, 1, 1, kNotSorted, 0, 1,
     NewPeneloux},
    {"PPR78", "PPR78 Group Interaction bank", kNumericKey, 2, 2, kSymmetric, 0, 0, NewPpr78},
    {"PRH", "PrH binary data", kComponentKeys, 2, 2, kAsymmetric, 0, 1, NewPrH},
    {"PRM", "PrM binary data", kComponentKeys, 2, 2, kAsymmetric, 0, 1, NewPrM},
    {"PRO", "Pr (Original) binary data", kComponentKeys, 2, 2, kSymmetric, 0, 1, NewPrO},
    {"PRP", "PrP binary data", kComponentKeys, 2, 2, kAsymmetric, 0, 1, NewPrP},
    {"PSRK",
     "Predictive SRK data",
     kNumericKey,
     2,
     0,
     kAsymmetric,
     0,
     1,
     NewPsrk,
     {kPureComponentType, "ALPHA"}},
    {kPureComponentType, "Pure component data", kComponentKeys, 1, 1, kNotSorted, 1, 1,
     NewPureComp},
    {"RACKETT", "Rackett data", kComponentKeys, 1, 1, kNotSorted, 0, 1, NewRackett},
    {"SRKH", "SrkH binary data", kComponentKeys, 2, 2, kAsymmetric, 0, 1, NewSrkH},
    {"SRKM", "SrkM binary data", kComponentKeys, 2, 2, kAsymmetric, 0, 1, NewSrkM},
    {"SRKO", "Srk (Original) binary data", kComponentKeys, 2, 2, kSymmetric, 0, 1, NewSrkO},
    {"SRKP", "SrkP binary data", kComponentKeys, 2, 2, kAsymmetric, 0, 1, NewSrkP},
    {"SRKS", "SrkS binary data", kComponentKeys, 2, 2, kAsymmetric, 0, 1, NewSrkS},
    {"ORWMAP", "Ordwin to Client component mapping data", kNumericKey, 1, 1, kOrdered, 0, 0,
     NewOrwMap},
    {"STRUCT", "Structural data", kComponentKeys, 1, 1, kNotSorted, 0, 1, NewStruct},
    {"UNF2PUR", "Unifac pure group parameters for UFT2", kNumericKey, 1, 1, kNotSorted, 0, 0,
     NewUnf2Pure},
    {"UNFDORT", "Dortmund Unifac data", kNumericKey, 2, 0, kAsymmetric, 0, 1, NewUnfDort},
    {"UNFLYNG", "Lyngby Unifac data", kNumericKey, 2, 0, kAsymmetric, 0, 1, NewUnfLyng},
    {"UNFORIG", "Original Unifac data", kNumericKey, 2, 0, kAsymmetric, 0, 1, NewUnfOrig},
    {"UNFMOD", "Modified Unifac data", kNumericKey, 2, 0, kAsymmetric, 0, 1, NewUnfMod},
    {"UNFPURE", "Unifac pure group parameters", kNumericKey, 1, 1, kNotSorted, 0, 0, NewUnfPure},
    {"UNIFAC", "Unifac binary group data", kNumericKey, 2, 2, kAsymmetric, 0, 0, NewUnifac},
    {"UNIQUAC", "Uniquac VLE binary data", kComponentKeys, 2, 2, kAsymmetric, 0, 1, NewUniquac},
    {"UNIQLL", "Uniquac LLE binary data", kComponentKeys, 2, 2, kAsymmetric, 0, 1, NewUniquacLL},
    {"VANLAAR", "vanLaar VLE binary data", kComponentKeys, 2, 2, kAsymmetric, 0, 1, NewVanLaar},
    {"VIRIAL", "Virial coefficients", kComponentKeys, 1, 1, kNotSorted, 0, 1, NewVirial},
    {"WILSON", "Wilson VLE binary data", kComponentKeys, 2, 2, kAsymmetric, 0, 1, NewWilson},
};

constexpr long kBankTypes = std::size(kCatalogue);

}  // namespace

BankType const* FindBankType(std::string_view keyword) noexcept {
  for (BankType const& type : kCatalogue) {
    if (SameText(type.keyword, keyword)) return &type;
  }
  return nullptr;
}

IZelBankDef* NewBank(char const* keyword) {
  BankType const* type = FindBankType(TextOrEmpty(keyword));
  return type == nullptr ? nullptr : type->factory();
}

IZelBankDef* NewKnownBank(char const* keyword) {
  IZelBankDef* const bank = NewBank(keyword);
  if (bank == nullptr && FindBankType(TextOrEmpty(keyword)) != nullptr) throw std::bad_alloc();
  return bank;
}

long GetBankTypeCount() { return kBankTypes; }

void GetBankTypeList(long count, char (*list)[9]) {
  if (list == nullptr) return;
  for (long i = 0; i < count; ++i) {
    std::string_view const keyword = i < kBankTypes ? kCatalogue[i].keyword : "";
    CopyText(keyword, list[i], sizeof list[i]);
  }
}

long GetRefBankTypeCount(char const* keyword) {
  BankType const* type = FindBankType(TextOrEmpty(keyword));
  if (type == nullptr) return 0;
  auto const end = std::find(std::begin(type->references), std::end(type->references), "");
  return static_cast<long>(end - std::begin(type->references));
}

void GetRefBankTypeList(char const* keyword, long count, char (*list)[9]) {
  if (list == nullptr) return;
  BankType const* type = FindBankType(TextOrEmpty(keyword));
  long const found = std::min(count, GetRefBankTypeCount(keyword));
  for (long i = 0; i < found; ++i) CopyText(type->references[i], list[i], sizeof list[i]);
}

}  // namespace zel
