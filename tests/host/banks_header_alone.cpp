// A host that includes only Banks.h has the interfaces of the types.
#include <zelaccess/Banks.h>

zel::IZelBankDef* MakePair() { return zel::NewBank("NRTL"); }
zel::ZelStatus ReadPair(zel::IZelVanLaar* pair, double* aij, double* aji) {
  return pair->GetData(aij, aji, nullptr, nullptr, nullptr, nullptr, nullptr);
}
