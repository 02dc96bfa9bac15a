// ColumnReader_i: a walk over a bank that decodes single fields.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "banks/bank_base.h"
#include "maint/face_ref.h"
#include "maint/lib_maint.h"
#include "zelaccess/Columns.h"

namespace zel {

class ColumnReader_i final : public ColumnReader {
 public:
  ColumnReader_i(LibFile* library, char const* type);
  ColumnReader_i(ColumnReader_i const&) = delete;
  ColumnReader_i& operator=(ColumnReader_i const&) = delete;
  ~ColumnReader_i() override = default;

  // False if the bank does not exist or has another layout.
  bool Begin(char const* type, char const* name);

  std::int32_t GetKeyWords() const override { return maint_.WalkedKeyWords(); }
  bool AddKeys(std::int32_t* words) override;
  bool AddReals(char const* field, double* values) override;
  bool AddIntegers(char const* field, std::int32_t* values) override;
  bool AddTexts(char const* field, char* texts) override;
  std::int32_t Read(std::int32_t rows) override;

 private:
  // A column of the host.
  struct Column {
    Field const* field;  // null for the key
    void* values;
    std::size_t rowBytes;
    bool isPlainReal;  // floats of the entry next to each other, which need no bank to decode them
  };
  using Block = std::array<std::int32_t, format::kBlockWordsOfFile1>;

  bool Add(char const* name, FieldType type, FieldType otherType, void* values,
           std::size_t elementBytes);
  std::int32_t const* RecordOf(std::int32_t const* data);
  bool ReadRow(std::int32_t const* entry, std::size_t row);

  LibMaint_i maint_;
  FaceRef<IZelBankDef> bank_;  // decodes, and is never filled
  BankBase_i* object_;         // the same
  std::int32_t format_ = 0;
  std::vector<Column> columns_;
  Block block_;  // the record of an item with blocks of its own, where it is not read in place
};

}  // namespace zel
