// Components and the identifiers under which they are found.
#include <string_view>

#include "frame/ascii.h"
#include "maint/lib_maint.h"
#include "store/packed_text.h"
#include "zelaccess/PureComp.h"

namespace zel {

namespace f = format;

namespace {

constexpr int kIds = 12;
constexpr int kIdSize = 9;

// Enters a key that was just searched for in vain: the tree stands where it belongs.
void Enter(BTree_i& tree, std::int32_t const* key, std::int32_t number) {
  tree.Insert(key, f::kNullAddress, f::kNullAddress);
  std::int32_t* entry = nullptr;
  if (!tree.GetCurrentData(entry)) return;
  *entry = number;
  tree.WriteCurrentNode();
}

}  // namespace

// Enters the identifiers of a component just written that the library does not know yet; entries
// that are there stay, also when they point at another component. A CAS number that fails its check
// digit is no identifier.
void LibMaint_i::UpdateIdTrees(IZelPureComp& record) {
  std::int32_t number = 0;
  std::int32_t casNumber = 0;
  std::int32_t refCode = 0;
  char ids[kIds][kIdSize];
  char name[41];
  char formula[21];
  std::uint8_t keepFormula = 0;
  record.GetIdentity(&number, &casNumber, &refCode, ids, name, formula, &keepFormula);
  std::int32_t const* data = nullptr;
  for (auto& id : ids) {
    if (id[0] == '\0' || library_->FindIdNumbers(id, data)) continue;
    for (char& c : id) c = ToUpper(c);
    std::int32_t key[f::kMaxKeyWords] = {};
    TextToWords(id, key, f::kIdKeyWords);
    Enter(*library_->GetCharIdTree(), key, number);
  }
  casn const cas(casNumber);
  if (static_cast<long>(cas) == 0 || library_->FindCasNumbers(cas, data)) return;
  std::int32_t const key[f::kMaxKeyWords] = {casNumber};
  Enter(*library_->GetCasTree(), key, number);
}

}  // namespace zel
