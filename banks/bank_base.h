// BankBase_i: what all banks share - fields by name, the data block, the source of an item.
//
// A bank holds one item and knows nothing of files. The concrete values stand in an item struct of
// the bank's class; its field table tells where, and how they lie in the data block. `Clear`,
// `ReadBlock` and `WriteBlock` allocate nothing.
#pragma once

#include <cstdint>
#include <memory>

#include "banks/catalogue.h"
#include "banks/field_table.h"
#include "banks/interface_ids.h"
#include "zelaccess/Banks.h"

namespace zel {

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
  ZelStatus GetEnumCount(char const*, std::int32_t*) override { return kStatusNotImplemented; }
  ZelStatus GetEnumList(char const*, char (*)[13], std::int32_t*, std::int32_t*) override {
    return kStatusNotImplemented;
  }
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
  ZelStatus SwapPair() override { return kStatusNotImplemented; }
  ZelStatus SetSource(LibFile* library, char const* bankName, std::uint8_t isProtected) override;
  ZelStatus SetSourceList(std::int32_t count, std::uint8_t const* found,
                          std::uint8_t const* isProtected) override;

  ZelStatus SelfTest() override { return kStatusNotImplemented; }

 protected:
  // `fields` lives as long as the module, `item` is the item struct of the class. Nothing is
  // cleared yet: the class's constructor ends with Clear.
  BankBase_i(BankType const& type, FieldTable const& fields, void* item) noexcept;
  virtual ~BankBase_i() = default;

  // The four faces that all banks have; `own` is the face of the type's interface.
  ZelStatus QueryFaces(ZelIid const& id, void** face, ZelIid const& ownId, void* own);

  bool HasFormat(std::int32_t format) const noexcept {
    return format >= 1 && format <= fields_.FormatCount();
  }
  // Where the current item came from: "library:bank".
  char const* Source() const noexcept { return source_; }
  bool SourceIsProtected() const noexcept { return sourceProtected_; }

 private:
  template <typename T>
  T* Member(FieldRow const& row) const noexcept {
    return reinterpret_cast<T*>(static_cast<std::byte*>(item_) + row.member);
  }
  std::int32_t DefaultOf(FieldRow const& row);

  std::int32_t refCount_ = 1;
  BankType const& type_;
  FieldTable const& fields_;
  void* item_;
  char source_[260] = {};
  std::int32_t sourceCount_ = 0;
  std::unique_ptr<std::uint8_t[]> sourceFlags_;
  bool sourceProtected_ = false;
};

}  // namespace zel
