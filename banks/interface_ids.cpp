#include "banks/interface_ids.h"

namespace zel {
namespace {

constexpr std::uint32_t kFirstPart = 0xDEADBEEF;

constexpr ZelIid FrameworkId(std::uint16_t number) { return {kFirstPart, 0, number, {}}; }
constexpr ZelIid TypeId(std::uint16_t number) { return {kFirstPart, 1, number, {}}; }

}  // namespace

constinit ZelIid const IID_IZelBankDef = FrameworkId(0);
constinit ZelIid const IID_IZelBankIO = FrameworkId(1);
constinit ZelIid const IID_IZelBankTest = FrameworkId(2);

constinit ZelIid const IID_IZelAlpha = TypeId(0);
constinit ZelIid const IID_IZelAzeo = TypeId(1);
constinit ZelIid const IID_IZelBwrs = TypeId(2);
constinit ZelIid const IID_IZelBwrsPure = TypeId(3);
constinit ZelIid const IID_IZelCostald = TypeId(4);
constinit ZelIid const IID_IZelGroupDes = TypeId(5);
constinit ZelIid const IID_IZelHenry = TypeId(6);
constinit ZelIid const IID_IZelHMix = TypeId(7);
constinit ZelIid const IID_IZelHocV = TypeId(8);
constinit ZelIid const IID_IZelIDimer = TypeId(9);
constinit ZelIid const IID_IZelIDimPure = TypeId(10);
constinit ZelIid const IID_IZelLkp = TypeId(11);
constinit ZelIid const IID_IZelMapOrw = TypeId(12);
constinit ZelIid const IID_IZelMargules = TypeId(13);
constinit ZelIid const IID_IZelMwPr = TypeId(14);
constinit ZelIid const IID_IZelMwSrk = TypeId(15);
constinit ZelIid const IID_IZelNrtl = TypeId(16);
constinit ZelIid const IID_IZelNrtlLL = TypeId(17);
constinit ZelIid const IID_IZelOctane = TypeId(18);
constinit ZelIid const IID_IZelOli = TypeId(19);
constinit ZelIid const IID_IZelPcSaft = TypeId(20);
constinit ZelIid const IID_IZelPcSaftPure = TypeId(21);
constinit ZelIid const IID_IZelPeneloux = TypeId(22);
constinit ZelIid const IID_IZelPpr78 = TypeId(23);
constinit ZelIid const IID_IZelPrH = TypeId(24);
constinit ZelIid const IID_IZelPrM = TypeId(25);
constinit ZelIid const IID_IZelPrO = TypeId(26);
constinit ZelIid const IID_IZelPrP = TypeId(27);
constinit ZelIid const IID_IZelPsrk = TypeId(28);
constinit ZelIid const IID_IZelPureComp = TypeId(29);
constinit ZelIid const IID_IZelRackett = TypeId(30);
constinit ZelIid const IID_IZelSrkH = TypeId(31);
constinit ZelIid const IID_IZelSrkM = TypeId(32);
constinit ZelIid const IID_IZelSrkO = TypeId(33);
constinit ZelIid const IID_IZelSrkP = TypeId(34);
constinit ZelIid const IID_IZelSrkS = TypeId(35);
constinit ZelIid const IID_IZelOrwMap = TypeId(36);
constinit ZelIid const IID_IZelStruct = TypeId(37);
constinit ZelIid const IID_IZelUnfDort = TypeId(38);
constinit ZelIid const IID_IZelUnfLyng = TypeId(39);
constinit ZelIid const IID_IZelUnfMod = TypeId(40);
constinit ZelIid const IID_IZelUnfOrig = TypeId(41);
constinit ZelIid const IID_IZelUnfPure = TypeId(42);
constinit ZelIid const IID_IZelUnf2Pure = TypeId(43);
constinit ZelIid const IID_IZelUnifac = TypeId(44);
constinit ZelIid const IID_IZelUniquac = TypeId(45);
constinit ZelIid const IID_IZelUniquacLL = TypeId(46);
constinit ZelIid const IID_IZelVanLaar = TypeId(47);
constinit ZelIid const IID_IZelVirial = TypeId(48);
constinit ZelIid const IID_IZelWilson = TypeId(49);

}  // namespace zel
