// BankBase_i: the part that all banks share - fields by name, the data block, the source of an
// item.
//
// A bank holds one item and does not deal with files. The values of its fields are in three arrays
// of the bank's class, one per type; its field table says where in these arrays, and where in the
// data block. `Clear`, `ReadBlock` and `WriteBlock` allocate nothing.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <utility>

#include "banks/catalogue.h"
#include "banks/field_table.h"
#include "banks/interface_ids.h"
#include "zelaccess/Banks.h"

namespace zel {

// The arrays of a bank, each as long as the field table says.
struct FieldValues {
  double* reals = nullptr;
  std::int32_t* integers = nullptr;
  char* characters = nullptr;
};

class BankBase_i : public IZelBankDef, public IZelBankIO, public IZelBankTest {
 public:
  BankBase_i(BankBase_i const&) = delete;
  BankBase_i& operator=(BankBase_i const&) = delete;

  std::int32_t AddRef() override { return ++refCount_; }
  std::int32_t Release() override;

  ZelStatus GetBankInfo(char* type, char* description, std::int32_t* keyKind,
                        std::int32_t* keyWords, std::int32_t* minKeyWords,
                        std::int32_t* formatCount, std::int32_t* maxRecordWords,
                        std::uint8_t* listed) override;
  ZelStatus GetRecordLength(std::int32_t format, std::int32_t* words) override;
  ZelStatus Clear() override;
  ZelStatus GetFieldCount(std::int32_t format, std::int32_t* count) override;
  ZelStatus GetFieldList(std::int32_t format, char (*names)[13], char (*labels)[20],
                         std::int32_t* types, std::int32_t* counts, char (*units)[20]) override;
  ZelStatus GetEnumCount(char const* field, std::int32_t* count) override;
  ZelStatus GetEnumList(char const* field, char (*names)[13], std::int32_t* values,
                        std::int32_t* defaultIndex) override;
  ZelStatus GetStringField(char const* name, char* text) override;
  ZelStatus GetDoubleField(char const* name, double* values) override;
  ZelStatus GetIntField(char const* name, std::int32_t* values) override;
  ZelStatus SetStringField(char const* name, char const* text) override;
  ZelStatus SetDoubleField(char const* name, double const* values) override;
  ZelStatus SetIntField(char const* name, std::int32_t const* values) override;
  ZelStatus GetSource(char* text, std::uint8_t* isProtected) override;
  ZelStatus GetSourceFlags(std::uint8_t* flags) override;
  ZelStatus SetRefBankName(char const*, char const*) override { return kStatusOk; }
  ZelStatus GetRefBankName(char const*, char* name) override;

  ZelStatus GetBlockInfo(char* type, std::int32_t* keyKind, std::int32_t* keyWords,
                         std::int32_t* minKeyWords, std::int32_t* formatCount,
                         std::int32_t* maxRecordWords, std::int32_t* pairRule,
                         std::int32_t* fileResident) override;
  ZelStatus ReadBlock(std::int32_t const* block, std::int32_t format) override;
  ZelStatus ReadFromFile(std::int32_t const*, LibFile*) override { return kStatusNotImplemented; }
  ZelStatus WriteBlock(std::int32_t* block, std::int32_t format) override;
  ZelStatus WriteToFile(std::int32_t*, LibFile*) override { return kStatusNotImplemented; }
  ZelStatus ReservedIO(void*, void*) override { return kStatusNotImplemented; }
  ZelStatus Complete() override { return kStatusNotImplemented; }
  ZelStatus SwapPair() override;
  ZelStatus SetSource(LibFile* library, char const* bankName, std::uint8_t isProtected) override;
  ZelStatus SetSourceList(std::int32_t count, std::uint8_t const* found,
                          std::uint8_t const* isProtected) override;

  ZelStatus SelfTest() override { return kStatusNotImplemented; }

  // Single fields of records as columns, without filling the bank.
  //
  // The field with this name and one of the two types; null if the bank does not have it.
  virtual Field const* FindColumn(std::string_view name, FieldType type,
                                  FieldType otherType) const {
    return fields_.Find(name, type, otherType);
  }
  // The length of the block that the data word of an item leads to; 0 where the data words are the
  // record.
  virtual std::int32_t ColumnBlockWords() const { return 0; }
  // The field's elements as ReadBlock stores them in a bank that is clear. A type with fields coded
  // by hand decodes these.
  virtual void DecodeColumn(Field const& field, std::int32_t const* record, std::int32_t format,
                            void* to) const;

 protected:
  // `fields` must live as long as the module, `values` as long as the bank. Does not clear the
  // values: the constructor of the bank's class ends with Clear.
  BankBase_i(BankType const& type, FieldTable const& fields, FieldValues values) noexcept;
  virtual ~BankBase_i() = default;

  // Finds one of the four faces that all banks have; `own` is the face of the type's interface.
  ZelStatus QueryFaces(ZelIid const& id, void** face, ZelIid const& ownId, void* own);

  // The typed operations: `outs` and `ins` are the addresses of the arguments' elements, in the
  // order of `arguments`.
  //
  // A null output is skipped; if every output is null the operation fails. A null input text counts
  // as empty. If an input array is null and elements of it would be used, nothing is stored and the
  // operation fails.
  ZelStatus GiveData(Arguments const& arguments, std::initializer_list<void*> outs) const;
  ZelStatus GiveDefaulted(Arguments const& arguments, std::initializer_list<void*> outs) const;
  // GiveData for arguments that are constants: each copy has a constant length.
  template <Arguments const& kArguments, std::size_t... kIndices>
  ZelStatus GiveEach(std::index_sequence<kIndices...>, std::initializer_list<void*> outs) const {
    bool given = false;
    ((given |= GiveArgument<kArguments, kIndices>(outs.begin()[kIndices])), ...);
    return given ? kStatusOk : kStatusFailed;
  }
  ZelStatus TakeData(Arguments const& arguments, std::initializer_list<void const*> ins);
  // TakeData for arguments that are constants. Only arrays can be missing.
  template <Arguments const& kArguments, std::size_t... kIndices>
  ZelStatus TakeEach(std::index_sequence<kIndices...>, std::initializer_list<void const*> ins) {
    constexpr bool kHasArrays = ((IsArray(*kArguments.List()[kIndices])) || ...);
    if (kHasArrays && !CanTake(kArguments, ins)) return kStatusFailed;
    (TakeArgument<kArguments, kIndices>(ins.begin()[kIndices]), ...);
    return kStatusOk;
  }

  // The elements of a field, for types that encode words themselves.
  double* Reals(Field const& field) const noexcept { return values_.reals + field.firstValue; }
  std::int32_t* Integers(Field const& field) const noexcept {
    return values_.integers + field.firstValue;
  }
  char* Text(Field const& field) const noexcept { return values_.characters + field.firstValue; }

  bool HasFormat(std::int32_t format) const noexcept {
    return format >= 1 && format <= fields_.FormatCount();
  }
  // Where the current item came from: "library:bank".
  char const* Source() const noexcept { return source_; }
  bool SourceIsProtected() const noexcept { return sourceProtected_; }

 private:
  template <Arguments const& kArguments, std::size_t kIndex>
  bool GiveArgument(void* to) const {
    constexpr Field const& kField = *kArguments.List()[kIndex];
    if (to == nullptr) return false;
    if constexpr (kField.type == kText || kField.counter != Field::kNone) {
      GiveField(kField, to);
    } else if constexpr (kField.type == kReal) {
      std::copy_n(values_.reals + kField.firstValue, kField.count, static_cast<double*>(to));
    } else {
      std::copy_n(values_.integers + kField.firstValue, kField.count,
                  static_cast<std::int32_t*>(to));
    }
    return true;
  }
  // To be called in the order of the arguments, in which a counter comes before what it counts.
  template <Arguments const& kArguments, std::size_t kIndex>
  void TakeArgument(void const* from) {
    constexpr Field const& kField = *kArguments.List()[kIndex];
    if constexpr (kField.type == kText || kField.counter != Field::kNone) {
      TakeField(kField, from);
    } else if constexpr (kField.type == kReal) {
      std::copy_n(static_cast<double const*>(from), kField.count,
                  values_.reals + kField.firstValue);
    } else {
      std::copy_n(static_cast<std::int32_t const*>(from), kField.count,
                  values_.integers + kField.firstValue);
    }
  }
  static constexpr bool IsArray(Field const& field) noexcept {
    return field.type != kText && field.count > 1;
  }
  void GiveField(Field const& field, void* to) const;
  void TakeField(Field const& field, void const* from);
  Enumeration const* FindEnumeration(char const* field) const noexcept;
  std::int32_t UsedElements(Field const& field) const noexcept;
  ZelStatus GiveFields(Arguments const& arguments, std::initializer_list<void*> outs,
                       bool defaulted) const;
  bool CanTake(Arguments const& arguments, std::initializer_list<void const*> ins) const noexcept;

  std::int32_t refCount_ = 1;
  BankType const& type_;
  FieldTable const& fields_;
  FieldValues values_;
  char source_[260] = {};
  std::int32_t sourceCount_ = 0;
  std::unique_ptr<std::uint8_t[]> sourceFlags_;
  bool sourceProtected_ = false;
};

}  // namespace zel
