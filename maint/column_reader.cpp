#include "maint/column_reader.h"

#include <algorithm>
#include <memory>

#include "banks/catalogue.h"
#include "frame/ascii.h"
#include "frame/trim7.h"

namespace zel {

ColumnReader::~ColumnReader() = default;

ColumnReader* ColumnReader::NewColumnReader(LibFile* library, char const* type, char const* name) {
  auto reader = std::make_unique<ColumnReader_i>(library, type);
  return reader->Begin(type, name) ? reader.release() : nullptr;
}

void ColumnReader::DelColumnReader(ColumnReader*& reader) {
  delete reader;
  reader = nullptr;
}

ColumnReader_i::ColumnReader_i(LibFile* library, char const* type)
    : maint_(library), bank_(NewKnownBank(type)), object_(dynamic_cast<BankBase_i*>(bank_.Get())) {}

bool ColumnReader_i::Begin(char const* type, char const* name) {
  if (object_ == nullptr || !maint_.BeginItemWalk(type, name)) return false;
  format_ = maint_.FormatOfWalk(bank_.Get());
  return format_ != 0;
}

bool ColumnReader_i::AddKeys(std::int32_t* words) {
  if (words == nullptr) return false;
  std::size_t const bytes = sizeof *words * static_cast<std::size_t>(GetKeyWords());
  columns_.push_back({nullptr, words, bytes, false});
  return true;
}

bool ColumnReader_i::Add(char const* name, FieldType type, FieldType otherType, void* values,
                         std::size_t elementBytes) {
  Field const* field = object_->FindColumn(TextOrEmpty(name), type, otherType);
  if (field == nullptr || values == nullptr) return false;
  bool const isPlainReal = field->type == kReal && !field->codedByHand &&
                           field->runElements == field->count && field->format <= format_ &&
                           object_->ColumnBlockWords() == 0;
  std::size_t const rowBytes = elementBytes * static_cast<std::size_t>(field->count);
  columns_.push_back({field, values, rowBytes, isPlainReal});
  return true;
}

bool ColumnReader_i::AddReals(char const* field, double* values) {
  return Add(field, kReal, kReal, values, sizeof *values);
}

bool ColumnReader_i::AddIntegers(char const* field, std::int32_t* values) {
  return Add(field, kInteger, kEnumerated, values, sizeof *values);
}

bool ColumnReader_i::AddTexts(char const* field, char* texts) {
  return Add(field, kText, kText, texts, sizeof *texts);
}

// The record that an entry's data words are, or lead to.
std::int32_t const* ColumnReader_i::RecordOf(std::int32_t const* data) {
  std::int32_t const words = object_->ColumnBlockWords();
  if (words == 0) return data;
  BlockStore& store = maint_.Library()->Store();
  if (std::int32_t const* inPlace = store.View(*data, words)) return inPlace;
  store.ReadOrThrow(*data, words, block_.data());
  return block_.data();
}

// False for an item that cannot be read and was reported to the host.
bool ColumnReader_i::ReadRow(std::int32_t const* entry, std::size_t row) {
  std::int32_t const* record = nullptr;
  try {
    record = RecordOf(entry + GetKeyWords());
  } catch (unsigned long const address) {
    if (maint_.TellUnread(maint_.PlaceInWalk(entry), address)) return false;
    throw;
  }
  for (Column const& column : columns_) {
    void* const to = static_cast<char*>(column.values) + row * column.rowBytes;
    if (column.isPlainReal) {
      Trim7Words(record + column.field->firstWord, column.field->count, static_cast<double*>(to));
    } else if (column.field == nullptr) {
      std::copy_n(entry, GetKeyWords(), static_cast<std::int32_t*>(to));
    } else {
      object_->DecodeColumn(*column.field, record, format_, to);
    }
  }
  return true;
}

std::int32_t ColumnReader_i::Read(std::int32_t rows) {
  std::int32_t row = 0;
  std::int32_t const* entry = nullptr;
  while (row < rows && maint_.NextEntry(entry)) {
    if (ReadRow(entry, static_cast<std::size_t>(row))) ++row;
  }
  return row;
}

}  // namespace zel
