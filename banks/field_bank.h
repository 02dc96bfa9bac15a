// The building blocks of the bank classes. A bank type is a field table and the argument lists of
// its typed operations; FieldBank or SetBank makes the class from these and the type's interface:
//
//   constexpr FieldTable kLkpFields({
//       {"kij", "kij", kReal, 1, "", 0, 1},
//       RefCodeAt(4),
//   });
//   constexpr Arguments kLkpArguments(kLkpFields, {"kij", "refCode"});
//   using Lkp_i = FieldBank<IZelLkp, kLkpFields, kLkpArguments>;
//
//   IZelBankDef* NewLkp() { return MakeBank<Lkp_i>("LKP", IID_IZelLkp); }
//
// The types of the operations' parameters are compared with the fields at compile time.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <new>
#include <string_view>
#include <type_traits>

#include "banks/bank_base.h"
#include "frame/ascii.h"

namespace zel {

// --- the body ------------------------------------------------------------------------------------

// One object with the faces that all banks have and the face of the type's interface.
template <typename Interface>
class BankWithFace : public BankBase_i, public Interface {
 public:
  ZelStatus QueryInterface(ZelIid const& id, void** face) final {
    return QueryFaces(id, face, ownId_, static_cast<Interface*>(this));
  }
  std::int32_t AddRef() final { return BankBase_i::AddRef(); }
  std::int32_t Release() final { return BankBase_i::Release(); }

 protected:
  BankWithFace(BankType const& type, FieldTable const& fields, FieldValues values,
               ZelIid const& ownId)
      : BankBase_i(type, fields, values), ownId_(ownId) {}

 private:
  ZelIid const& ownId_;
};

// The values of a type's fields.
template <FieldTable const& kFields>
struct FieldStorage {
  std::array<double, kFields.Reals()> reals{};
  std::array<std::int32_t, kFields.Integers()> integers{};
  std::array<char, kFields.Characters()> characters{};
};

// The storage is constructed before the bank that refers to it.
template <typename Interface, FieldTable const& kFields>
class BankWithFields : private FieldStorage<kFields>, public BankWithFace<Interface> {
 protected:
  BankWithFields(BankType const& type, ZelIid const& ownId)
      : BankWithFace<Interface>(
            type, kFields, {this->reals.data(), this->integers.data(), this->characters.data()},
            ownId) {
    this->Clear();
  }
};

// --- parameters of typed operations --------------------------------------------------------------

// True if a parameter of type T matches the field: a pointer to its elements or, for an input, the
// value of a field with one element.
template <typename T>
constexpr bool Stands(Field const& field) {
  using Element = std::remove_cv_t<std::remove_pointer_t<T>>;
  bool const isOf = std::is_same_v<Element, double>         ? field.type == kReal
                    : std::is_same_v<Element, std::int32_t> ? field.IsInteger()
                                                            : field.type == kText;
  bool const isOutput = std::is_pointer_v<T> && !std::is_const_v<std::remove_pointer_t<T>>;
  bool const byPointer = field.type == kText || field.count > 1;
  return isOf && (isOutput || std::is_pointer_v<T> == byPointer);
}

template <typename... Parameters>
constexpr bool Match(Arguments const& arguments) {
  using Test = bool (*)(Field const&);
  constexpr Test kTests[] = {Stands<Parameters>...};
  auto const fields = arguments.List();
  if (fields.size() != sizeof...(Parameters)) return false;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (!kTests[i](*fields[i])) return false;
  }
  return true;
}

template <typename T>
void const* AddressOf(T const& value) {
  return &value;
}
template <typename T>
void const* AddressOf(T const* const& elements) {
  return elements;
}

// --- the operations ------------------------------------------------------------------------------

// GetData and PutData, whose parameters are those of the interface.
template <typename Base, Arguments const& kArguments, typename Get, typename Put>
class DataOperations;
template <typename Base, Arguments const& kArguments, typename Face, typename... Outs,
          typename... Ins>
class DataOperations<Base, kArguments, ZelStatus (Face::*)(Outs...), ZelStatus (Face::*)(Ins...)>
    : public Base {
  static_assert(Match<Outs...>(kArguments) && Match<Ins...>(kArguments));

 public:
  ZelStatus GetData(Outs... outs) final {
    return this->template GiveEach<kArguments>(std::index_sequence_for<Outs...>(), {outs...});
  }
  ZelStatus PutData(Ins... ins) final {
    return this->template TakeEach<kArguments>(std::index_sequence_for<Ins...>(),
                                               {AddressOf(ins)...});
  }

 protected:
  using Base::Base;
};

template <typename Base, Arguments const& kArguments, typename Get>
class DefaultedOperation;
template <typename Base, Arguments const& kArguments, typename Face, typename... Outs>
class DefaultedOperation<Base, kArguments, ZelStatus (Face::*)(Outs...)> : public Base {
  static_assert(Match<Outs...>(kArguments));

 public:
  ZelStatus GetDataDefaulted(Outs... outs) final {
    return this->GiveDefaulted(kArguments, {outs...});
  }

 protected:
  using Base::Base;
};

// GetInteraction and PutInteraction, the part of a set whose parameters differ by type.
template <typename Base, Arguments const& kArguments, typename Get, typename Put>
class InteractionOperations;
template <typename Base, Arguments const& kArguments, typename Face, typename... Outs,
          typename... Ins>
class InteractionOperations<Base, kArguments, ZelStatus (Face::*)(Outs...),
                            ZelStatus (Face::*)(Ins...)> : public Base {
  static_assert(Match<Outs...>(kArguments) && Match<Ins...>(kArguments));

 public:
  ZelStatus GetInteraction(Outs... outs) final { return this->GiveData(kArguments, {outs...}); }
  ZelStatus PutInteraction(Ins... ins) final {
    return this->TakeData(kArguments, {AddressOf(ins)...});
  }

 protected:
  using Base::Base;
};

// --- bank classes --------------------------------------------------------------------------------

template <typename Interface, FieldTable const& kFields, Arguments const& kArguments>
using DataBank = DataOperations<BankWithFields<Interface, kFields>, kArguments,
                                decltype(&Interface::GetData), decltype(&Interface::PutData)>;
template <typename Interface, FieldTable const& kFields, Arguments const& kArguments>
using DefaultedBank = DefaultedOperation<DataBank<Interface, kFields, kArguments>, kArguments,
                                         decltype(&Interface::GetDataDefaulted)>;

// A bank whose interface has GetData and PutData of all fields.
template <typename Interface, FieldTable const& kFields, Arguments const& kArguments>
class FieldBank : public DataBank<Interface, kFields, kArguments> {
  static_assert(kArguments.AreAllOf(kFields));

 public:
  FieldBank(BankType const& type, ZelIid const& ownId)
      : DataBank<Interface, kFields, kArguments>(type, ownId) {}
};
// A bank type whose interface also has GetDataDefaulted.
template <typename Interface, FieldTable const& kFields, Arguments const& kArguments>
requires requires { &Interface::GetDataDefaulted; }
class FieldBank<Interface, kFields, kArguments>
    : public DefaultedBank<Interface, kFields, kArguments> {
  static_assert(kArguments.AreAllOf(kFields));

 public:
  FieldBank(BankType const& type, ZelIid const& ownId)
      : DefaultedBank<Interface, kFields, kArguments>(type, ownId) {}
};

// The factory of a bank class; null when memory is short.
template <typename Bank>
IZelBankDef* MakeBank(std::string_view keyword, ZelIid const& id) {
  static BankType const& type = *FindBankType(keyword);  // each class has a row in the catalogue
  return new (std::nothrow) Bank(type, id);
}

}  // namespace zel
