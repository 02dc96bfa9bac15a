// The identifiers under which components are found. They are entered for a component, and looked up
// by its number.
#include <string_view>

#include "banks/catalogue.h"
#include "frame/ascii.h"
#include "frame/limits.h"
#include "maint/component_identity.h"
#include "maint/lib_maint.h"
#include "store/key.h"
#include "store/packed_text.h"

namespace zel {

namespace f = format;

namespace {

// The banks of a reference library that are searched, in this order.
constexpr char const* kReferenceBanks[] = {"ORDWIN", "PLANTIX"};

// Enters a key that was just searched for and not found: the tree is at the place where it belongs.
void Enter(BTree_i& tree, std::int32_t const* key, std::int32_t number) {
  std::int32_t const data[f::kNodeWords] = {number};  // a damaged tree may claim more than one word
  tree.InsertWithData(key, data);
}

}  // namespace

// Enters those identifiers of a component just written that the library does not know yet. Existing
// entries are kept, even if they belong to another component. A CAS number that fails its check
// digit is not an identifier.
void LibMaint_i::UpdateIdTrees(IZelPureComp& record) {
  ComponentIdentity identity(&record);
  std::int32_t const* data = nullptr;
  for (auto& id : identity.ids) {
    if (id[0] == '\0' || library_->FindIdNumbers(id, data)) continue;
    for (char& c : id) c = ToUpper(c);
    std::int32_t key[f::kMaxKeyWords] = {};
    TextToWords(id, key, f::kIdKeyWords);
    Enter(*library_->GetCharIdTree(), key, identity.number);
  }
  casn const cas = identity.Cas();
  if (static_cast<long>(cas) == 0 || library_->FindCasNumbers(cas, data)) return;
  std::int32_t const key[f::kMaxKeyWords] = {identity.casNumber};
  Enter(*library_->GetCasTree(), key, identity.number);
}

// Looks for the component with this number in the library's own banks, in the order of the
// directory, and then in the reference banks of the name index. False when none has it.
bool LibMaint_i::FindComponentByNumber(std::int32_t number, char* id, casn& cas,
                                       bool& fromReference) {
  Give(id, '\0');
  cas = casn();
  fromReference = false;
  FaceRef<IZelBankDef> const bank(NewKnownBank(kPureComponentType));
  auto const component = FaceRef<IZelPureComp>::Of(bank.Get(), IID_IZelPureComp);
  Key_i key;
  key.SetKey(static_cast<long>(number));
  auto const read = [&](LibMaint_i& reader, char const* name) {
    if (!reader.ReadItem(bank.Get(), name, &key)) return false;
    ComponentIdentity const identity(component.Get());
    GiveText(identity.ids[0], id, ComponentIdentity::kIdSize);
    cas = identity.Cas();
    return true;
  };
  if (!component) return false;
  LibMaint_i walk(library_);
  LibMaint_i own(library_);
  char type[kMostName + 1];
  char name[kMostName + 1];
  walk.BeginBankWalk(kPureComponentType);
  while (walk.NextBank(type, name)) {
    if (read(own, name)) return true;
  }
  NameIndexUse const use;
  LibFile* reference = use.Library();
  if (reference == nullptr || reference == library_) return false;
  LibMaint_i other(reference);
  for (char const* referenceBank : kReferenceBanks) {
    fromReference = read(other, referenceBank);
    if (fromReference) return true;
  }
  return false;
}

void LibMaint_i::GetIdOfNumber(std::int32_t number, char* id, bool& fromNameIndex) {
  casn cas;
  FindComponentByNumber(number, id, cas, fromNameIndex);
}

void LibMaint_i::GetIdOfNumber(std::int32_t number, char* id) {
  if (id == nullptr) return;
  bool fromNameIndex = false;
  GetIdOfNumber(number, id, fromNameIndex);
}

void LibMaint_i::GetCasOfNumber(std::int32_t number, casn& cas, bool& fromNameIndex) {
  char id[ComponentIdentity::kIdSize];
  FindComponentByNumber(number, id, cas, fromNameIndex);
}

void LibMaint_i::GetCasOfNumber(std::int32_t number, casn& cas) {
  bool fromNameIndex = false;
  GetCasOfNumber(number, cas, fromNameIndex);
}

}  // namespace zel
