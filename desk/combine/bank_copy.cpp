#include "desk/combine/bank_copy.h"

#include "desk/words/failure.h"

namespace zel::desk {
namespace {

// Why a component is refused, in the words of the library's identity check.
std::string Reasons(Library const& to, zel::IZelBankDef& item, zel::Key& key) {
  void* face = nullptr;
  if (item.QueryInterface(zel::IID_IZelPureComp, &face) != zel::kStatusOk) return "is refused";
  auto* const component = static_cast<zel::IZelPureComp*>(face);
  char text[300] = {};
  to.Maint().CheckComponent(component, &key, text);
  component->Release();
  return std::string("is refused: ") + text;
}

}  // namespace

void RefuseItem(Library const& library, BankName const& bank, std::string const& item,
                std::string const& why) {
  throw Failure(library.Path() + ": " + ToText(bank) + ", item " + item + ": " + why);
}

void MakeBankLike(Library const& from, Library const& to, BankName const& bank) {
  char const* const type = bank.type.c_str();
  char const* const name = bank.name.c_str();
  if (to.Maint().BankExists(type, name)) {
    std::int32_t const there = to.Maint().GetBankFormat(type, name);
    std::int32_t const here = from.Maint().GetBankFormat(type, name);
    if (there < here) {
      throw Failure(to.Path() + ": bank " + ToText(bank) + " is of format " +
                    std::to_string(there) + ", which has no room for all fields of format " +
                    std::to_string(here));
    }
    return;
  }
  if (!to.Maint().CreateBank(type, name, from.Maint().GetBankFormat(type, name))) {
    throw Failure(to.Path() + ": bank " + ToText(bank) + " cannot be created");
  }
  char memo[kMemoSize] = {};
  from.Maint().GetBankMemo(type, name, memo);
  if (*memo != '\0') to.Maint().SetBankMemo(type, name, memo);
}

void WriteItem(Library const& to, BankName const& bank, zel::IZelBankDef& item, zel::Key& key,
               std::string const& shown) {
  if (to.Maint().WriteItem(&item, bank.name.c_str(), &key)) return;
  RefuseItem(to, bank, shown, Reasons(to, item, key));
}

}  // namespace zel::desk
