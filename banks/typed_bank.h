// What the bank classes are made of: an item struct, its field table, and the lists of members that
// the typed operations pass through.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <new>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include "banks/bank_base.h"
#include "frame/ascii.h"

namespace zel {

// --- members as arguments ------------------------------------------------------------------------

// A member that GetDataDefaulted passes as it stands: a bound of the range.
template <typename Item, typename Type>
struct BoundMember {
  Type Item::*member;
};
template <typename Item, typename Type>
constexpr BoundMember<Item, Type> Bound(Type Item::*member) {
  return {member};
}

template <typename Item, typename Type>
constexpr Type Item::*PlainMember(Type Item::*member) {
  return member;
}
template <typename Item, typename Type>
constexpr Type Item::*PlainMember(BoundMember<Item, Type> bound) {
  return bound.member;
}

template <typename Type>
void CopyOut(Type const& member, Type* out) {
  *out = member;
}
template <typename Type, std::size_t N>
void CopyOut(Type const (&member)[N], Type* out) {
  std::copy_n(member, N, out);
}
template <std::size_t N>
void CopyOut(char const (&member)[N], char* out) {
  CopyText(member, out, N);
}

template <typename Type>
void TakeIn(Type& member, Type value) {
  member = value;
}
template <typename Type, std::size_t N>
void TakeIn(Type (&member)[N], Type const* values) {
  std::copy_n(values, N, member);
}
template <std::size_t N>
void TakeIn(char (&member)[N], char const* text) {
  CopyText(TextOrEmpty(text), member, N);
}

inline void DefaultUndefined(double& value, double byDefault) {
  if (gen_IsUndefDouble(value)) value = byDefault;
}
template <std::size_t N>
void DefaultUndefined(double (&values)[N], double byDefault) {
  for (double& value : values) DefaultUndefined(value, byDefault);
}
template <typename Type>
void DefaultUndefined(Type&, double) {}  // integers and texts pass as they stand

// Gives the members of the list through the out arguments, in their order.
template <typename Item, typename... Members, typename... Outs>
ZelStatus GiveData(Item const& item, std::tuple<Members...> const& list, Outs... outs) {
  std::apply([&](auto... members) { (CopyOut(item.*PlainMember(members), outs), ...); }, list);
  return kStatusOk;
}

// The same with 0.0 for every undefined element of a model coefficient.
template <typename Item, typename... Members, typename... Outs>
ZelStatus GiveDefaulted(Item item, std::tuple<Members...> const& list, Outs... outs) {
  auto const fill = [&](auto member) {
    if constexpr (std::is_member_pointer_v<decltype(member)>) DefaultUndefined(item.*member, 0.0);
  };
  std::apply([&](auto... members) { (fill(members), ...); }, list);
  return GiveData(item, list, outs...);
}

template <typename Item, typename... Members, typename... Ins>
ZelStatus TakeData(Item& item, std::tuple<Members...> const& list, Ins... ins) {
  std::apply([&](auto... members) { (TakeIn(item.*PlainMember(members), ins), ...); }, list);
  return kStatusOk;
}

// Exchanges the members of each pair: what stands for (i, j) then reads as the data of (j, i).
template <typename Item, typename... Pairs>
ZelStatus SwapMembers(Item& item, std::tuple<Pairs...> const& pairs) {
  std::apply([&](auto const&... pair) { (std::swap(item.*pair.first, item.*pair.second), ...); },
             pairs);
  return kStatusOk;
}

// --- bank classes --------------------------------------------------------------------------------

// One body with the faces that all banks have and that of the type's interface.
template <typename Interface>
class BankWithFace : public BankBase_i, public Interface {
 public:
  ZelStatus QueryInterface(ZelIid const& id, void** face) final {
    return QueryFaces(id, face, ownId_, static_cast<Interface*>(this));
  }
  std::int32_t AddRef() final { return BankBase_i::AddRef(); }
  std::int32_t Release() final { return BankBase_i::Release(); }

 protected:
  BankWithFace(BankType const& type, FieldTable const& fields, void* item, ZelIid const& ownId)
      : BankBase_i(type, fields, item), ownId_(ownId) {}

 private:
  ZelIid const& ownId_;
};

// A bank over an item struct. The class's constructor ends with Clear().
template <typename Item, typename Interface>
class TypedBank : public BankWithFace<Interface> {
 protected:
  TypedBank(BankType const& type, FieldTable const& fields, ZelIid const& ownId)
      : BankWithFace<Interface>(type, fields, &item_, ownId) {}

  Item item_{};
};

// The factory of a bank class; null when memory is short.
template <typename Bank>
IZelBankDef* MakeBank(std::string_view keyword, ZelIid const& id) {
  static BankType const& type = *FindBankType(keyword);  // each class has a row in the catalogue
  return new (std::nothrow) Bank(type, id);
}

}  // namespace zel
