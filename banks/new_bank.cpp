// A bank by its type keyword.
#include "frame/ascii.h"
#include "zelaccess/Banks.h"

namespace zel {

IZelBankDef* NewBank(char const* keyword) {
  std::string_view const type = TextOrEmpty(keyword);
  if (SameText(type, "ALPHA")) return NewAlpha();
  if (SameText(type, "AZEOTROP")) return NewAzeo();
  if (SameText(type, "BWRS")) return NewBwrs();
  if (SameText(type, "PUREBWRS")) return NewBwrsPure();
  if (SameText(type, "COSTALD")) return NewCostald();
  if (SameText(type, "GRPDESC")) return NewGroupDes();
  if (SameText(type, "HENRY")) return NewHenry();
  if (SameText(type, "HMIX")) return NewHMix();
  if (SameText(type, "HOCV")) return NewHocV();
  if (SameText(type, "IDIMER")) return NewIDimer();
  if (SameText(type, "IDIMPURE")) return NewIDimPure();
  if (SameText(type, "LKP")) return NewLkp();
  if (SameText(type, "MAPORW")) return NewMapOrw();
  if (SameText(type, "MARGULES")) return NewMargules();
  if (SameText(type, "MWPR")) return NewMwPr();
  if (SameText(type, "MWSRK")) return NewMwSrk();
  if (SameText(type, "NRTL")) return NewNrtl();
  if (SameText(type, "NRTLLL")) return NewNrtlLL();
  if (SameText(type, "OCTANE")) return NewOctane();
  if (SameText(type, "OLI")) return NewOli();
  if (SameText(type, "PCSAFT")) return NewPcSaft();
  if (SameText(type, "PCSAFTPU")) return NewPcSaftPure();
  if (SameText(type, "PENELOUX")) return NewPeneloux();
  if (SameText(type, "PPR78")) return NewPpr78();
  if (SameText(type, "PRH")) return NewPrH();
  if (SameText(type, "PRM")) return NewPrM();
  if (SameText(type, "PRO")) return NewPrO();
  if (SameText(type, "PRP")) return NewPrP();
  if (SameText(type, "PSRK")) return NewPsrk();
  if (SameText(type, "PURECOMP")) return NewPureComp();
  if (SameText(type, "RACKETT")) return NewRackett();
  if (SameText(type, "SRKH")) return NewSrkH();
  if (SameText(type, "SRKM")) return NewSrkM();
  if (SameText(type, "SRKO")) return NewSrkO();
  if (SameText(type, "SRKP")) return NewSrkP();
  if (SameText(type, "SRKS")) return NewSrkS();
  if (SameText(type, "ORWMAP")) return NewOrwMap();
  if (SameText(type, "STRUCT")) return NewStruct();
  if (SameText(type, "UNFDORT")) return NewUnfDort();
  if (SameText(type, "UNFLYNG")) return NewUnfLyng();
  if (SameText(type, "UNFMOD")) return NewUnfMod();
  if (SameText(type, "UNFORIG")) return NewUnfOrig();
  if (SameText(type, "UNFPURE")) return NewUnfPure();
  if (SameText(type, "UNF2PUR")) return NewUnf2Pure();
  if (SameText(type, "UNIFAC")) return NewUnifac();
  if (SameText(type, "UNIQUAC")) return NewUniquac();
  if (SameText(type, "UNIQLL")) return NewUniquacLL();
  if (SameText(type, "VANLAAR")) return NewVanLaar();
  if (SameText(type, "VIRIAL")) return NewVirial();
  if (SameText(type, "WILSON")) return NewWilson();
  return nullptr;
}

}  // namespace zel
