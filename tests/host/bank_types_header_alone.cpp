// A host that includes only BankTypes.h has the framework, the identifiers and the factories.
#include <zelaccess/BankTypes.h>

zel::IZelVanLaar* PairOf(zel::IZelBankDef* bank) {
  void* face = nullptr;
  bank->QueryInterface(zel::IID_IZelVanLaar, &face);
  return static_cast<zel::IZelVanLaar*>(face);
}
zel::IZelVanLaar* NewPair() { return PairOf(zel::NewVanLaar()); }
zel::ZelStatus Turn(zel::IZelBankIO* bank) { return bank->SwapPair(); }
long Types() { return zel::GetBankTypeCount(); }
