#include "bench/many_components.h"

#include <stdexcept>
#include <string>

#include "frame/ascii.h"
#include "maint/lib_maint.h"
#include "store/key.h"
#include "zelaccess/PureComp.h"

namespace zel::bench {

void MakeManyComponents(LibFile& library) {
  constexpr std::int32_t kFirst = 10'000'000;
  LibMaint_i maint(&library);
  maint.CreateBank("PURECOMP", kManyBank, 0);
  FaceRef<IZelBankDef> const bank(NewPureComp());
  auto const component = FaceRef<IZelPureComp>::Of(bank.Get(), IID_IZelPureComp);
  Key_i key;
  for (std::int32_t i = 0; i < kManyComponents; ++i) {
    char ids[12][9] = {};
    CopyText("C" + std::to_string(i), ids[0], sizeof ids[0]);
    CopyText("D" + std::to_string(i), ids[1], sizeof ids[1]);
    bank->Clear();
    std::string const name =
        std::to_string(i % 7) + "-Component " + std::to_string(i * 7919 % 99991);
    component->SetIdentity(kFirst + i, 0, 0, ids, name.c_str(), "C2H6O", 0);
    component->SetProperty(8, 200.0 + i % 400);
    component->SetProperty(0, 20.0 + i % 300);
    key.SetKey(static_cast<long>(kFirst + i));
    if (!maint.WriteItem(bank.Get(), kManyBank, &key)) throw std::runtime_error("no item");
  }
}

}  // namespace zel::bench
