#include "maint/located_bank.h"

namespace zel {

LocatedBank::Answer LocatedBank::LocateAgain(LibFile_i& library, BankObject const& bank,
                                             char const* name) {
  BankName const wanted = bank.Named(name);
  LibraryStamp const now = LibraryStamp::Of(library);
  if (tree_ && !wanted.IsEmpty() && wanted == name_ && now == stamp_) return FitAgain(bank);
  bool const reading = library.Store().Mode() == accRead;
  BankMemory::Head const* head = reading ? memory_.Find(wanted, now) : nullptr;
  if (head != nullptr) {
    OpenTree(library, head->data());
  } else {
    std::int32_t const* entry = nullptr;
    if (!library.FindBank(bank.Info().type, name, entry, false)) return Answer::kNoBank;
    OpenTree(library, entry + format::kBankHead);
    if (reading && !wanted.IsEmpty()) memory_.Keep(wanted, head_, now);
  }
  name_ = wanted;
  stamp_ = LibraryStamp::Of(library);
  return FitAgain(bank);
}

}  // namespace zel
