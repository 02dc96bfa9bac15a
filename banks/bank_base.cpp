#include "banks/bank_base.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "banks/block_words.h"
#include "frame/ascii.h"
#include "frame/limits.h"
#include "frame/trim7.h"
#include "store/packed_text.h"
#include "zelaccess/LibFile.h"

namespace zel {
namespace {

constexpr std::size_t kTypeSize = kMostName + 1;
constexpr std::size_t kDescriptionSize = 50;

// Visits the runs of a field: visit(words, first element, number of elements).
template <typename Visit>
void ForEachRun(Field const& field, std::int32_t const* block, Visit const& visit) {
  std::int32_t const* words = block + field.firstWord;
  for (std::int32_t i = 0; i < field.count; i += field.runElements, words += field.stepWords) {
    visit(words, i, field.runElements);
  }
}

}  // namespace

BankBase_i::BankBase_i(BankType const& type, FieldTable const& fields, FieldValues values) noexcept
    : type_(type), fields_(fields), values_(values) {}

std::int32_t BankBase_i::Release() {
  std::int32_t const left = --refCount_;
  if (left > 0) return left;
  delete this;
  return 0;
}

ZelStatus BankBase_i::QueryFaces(ZelIid const& id, void** face, ZelIid const& ownId, void* own) {
  if (face == nullptr) return kStatusNoInterface;
  *face = nullptr;
  if (id == IID_IUnknown || id == IID_IZelBankDef) {
    *face = static_cast<IZelBankDef*>(this);
  } else if (id == IID_IZelBankIO) {
    *face = static_cast<IZelBankIO*>(this);
  } else if (id == IID_IZelBankTest) {
    *face = static_cast<IZelBankTest*>(this);
  } else if (id == ownId) {
    *face = own;
  } else {
    return kStatusNoInterface;
  }
  ++refCount_;
  return kStatusOk;
}

// --- what the bank is ------------------------------------------------------------------------

ZelStatus BankBase_i::GetBankInfo(char* type, char* description, std::int32_t* keyKind,
                                  std::int32_t* keyWords, std::int32_t* minKeyWords,
                                  std::int32_t* formatCount, std::int32_t* maxRecordWords,
                                  std::uint8_t* listed) {
  if (NothingWanted(type, description, keyKind, keyWords, minKeyWords, formatCount, maxRecordWords,
                    listed)) {
    return kStatusFailed;
  }
  GiveText(type_.keyword, type, kTypeSize);
  GiveText(type_.description, description, kDescriptionSize);
  Give(keyKind, type_.keyKind);
  Give(keyWords, type_.keyWords);
  Give(minKeyWords, type_.minKeyWords);
  Give(formatCount, fields_.FormatCount());
  Give(maxRecordWords, fields_.MaxRecordWords());
  Give(listed, type_.listed);
  return kStatusOk;
}

ZelStatus BankBase_i::GetBlockInfo(char* type, std::int32_t* keyKind, std::int32_t* keyWords,
                                   std::int32_t* minKeyWords, std::int32_t* formatCount,
                                   std::int32_t* maxRecordWords, std::int32_t* pairRule,
                                   std::int32_t* fileResident) {
  if (NothingWanted(type, keyKind, keyWords, minKeyWords, formatCount, maxRecordWords, pairRule,
                    fileResident)) {
    return kStatusFailed;
  }
  GiveText(type_.keyword, type, kTypeSize);
  Give(keyKind, type_.keyKind);
  Give(keyWords, type_.keyWords);
  Give(minKeyWords, type_.minKeyWords);
  Give(formatCount, fields_.FormatCount());
  Give(maxRecordWords, fields_.MaxRecordWords());
  Give(pairRule, type_.pairRule);
  Give(fileResident, type_.fileResident);
  return kStatusOk;
}

ZelStatus BankBase_i::GetRecordLength(std::int32_t format, std::int32_t* words) {
  if (words == nullptr) return kStatusFailed;
  std::int32_t const wanted = format == 0 ? fields_.FormatCount() : format;
  *words = HasFormat(wanted) ? fields_.RecordWords(wanted) : 0;
  return HasFormat(wanted) ? kStatusOk : kStatusFailed;
}

ZelStatus BankBase_i::GetFieldCount(std::int32_t format, std::int32_t* count) {
  if (count == nullptr) return kStatusFailed;
  auto const rows = fields_.Rows();
  *count = static_cast<std::int32_t>(std::count_if(rows.begin(), rows.end(), [&](Field const& row) {
    return format == 0 || row.format <= format;
  }));
  return kStatusOk;
}

ZelStatus BankBase_i::GetFieldList(std::int32_t format, char (*names)[13], char (*labels)[20],
                                   std::int32_t* types, std::int32_t* counts, char (*units)[20]) {
  if (fields_.Rows().empty()) return kStatusNotImplemented;
  if (NothingWanted(names, labels, types, counts, units)) return kStatusFailed;
  std::size_t at = 0;
  for (Field const& row : fields_.Rows()) {
    if (format != 0 && row.format > format) continue;
    if (names != nullptr) CopyText(row.name, names[at], sizeof names[at]);
    if (labels != nullptr) CopyText(row.label, labels[at], sizeof labels[at]);
    if (types != nullptr) types[at] = row.type;
    if (counts != nullptr) counts[at] = row.count;
    if (units != nullptr) CopyText(row.unit, units[at], sizeof units[at]);
    ++at;
  }
  return kStatusOk;
}

// --- enumerations --------------------------------------------------------------------------------

Enumeration const* BankBase_i::FindEnumeration(char const* field) const noexcept {
  Field const* row = fields_.Find(TextOrEmpty(field), kEnumerated, kEnumerated);
  return row == nullptr ? nullptr : row->enumeration;
}

ZelStatus BankBase_i::GetEnumCount(char const* field, std::int32_t* count) {
  Enumeration const* found = FindEnumeration(field);
  if (found == nullptr) return kStatusNotImplemented;
  if (count == nullptr) return kStatusFailed;
  *count = static_cast<std::int32_t>(found->entries.size());
  return kStatusOk;
}

ZelStatus BankBase_i::GetEnumList(char const* field, char (*names)[13], std::int32_t* values,
                                  std::int32_t* defaultIndex) {
  Enumeration const* found = FindEnumeration(field);
  if (found == nullptr) return kStatusNotImplemented;
  if (names == nullptr && values == nullptr && defaultIndex == nullptr) return kStatusFailed;
  std::size_t at = 0;
  for (EnumEntry const& entry : found->entries) {
    if (names != nullptr) CopyText(entry.name, names[at], sizeof names[at]);
    if (values != nullptr) values[at] = entry.value;
    ++at;
  }
  if (defaultIndex != nullptr) *defaultIndex = found->defaultIndex;
  return kStatusOk;
}

// --- fields by name ------------------------------------------------------------------------------

ZelStatus BankBase_i::GetStringField(char const* name, char* text) {
  Field const* row = fields_.Find(TextOrEmpty(name), kText, kText);
  if (text == nullptr) return kStatusFailed;
  *text = '\0';
  if (row == nullptr) return kStatusFailed;
  CopyText(Text(*row), text, static_cast<std::size_t>(row->count));
  return kStatusOk;
}

ZelStatus BankBase_i::GetDoubleField(char const* name, double* values) {
  Field const* row = fields_.Find(TextOrEmpty(name), kReal, kReal);
  if (values == nullptr) return kStatusFailed;
  *values = 0.0;
  if (row == nullptr) return kStatusFailed;
  std::copy_n(Reals(*row), row->count, values);
  return kStatusOk;
}

ZelStatus BankBase_i::GetIntField(char const* name, std::int32_t* values) {
  Field const* row = fields_.Find(TextOrEmpty(name), kInteger, kEnumerated);
  if (values == nullptr) return kStatusFailed;
  *values = 0;
  if (row == nullptr) return kStatusFailed;
  std::copy_n(Integers(*row), row->count, values);
  return kStatusOk;
}

ZelStatus BankBase_i::SetStringField(char const* name, char const* text) {
  Field const* row = fields_.Find(TextOrEmpty(name), kText, kText);
  if (row == nullptr) return kStatusFailed;
  CopyText(TextOrEmpty(text), Text(*row), static_cast<std::size_t>(row->count));
  return kStatusOk;
}

ZelStatus BankBase_i::SetDoubleField(char const* name, double const* values) {
  Field const* row = fields_.Find(TextOrEmpty(name), kReal, kReal);
  if (row == nullptr || values == nullptr) return kStatusFailed;
  std::copy_n(values, row->count, Reals(*row));
  return kStatusOk;
}

ZelStatus BankBase_i::SetIntField(char const* name, std::int32_t const* values) {
  Field const* row = fields_.Find(TextOrEmpty(name), kInteger, kEnumerated);
  if (row == nullptr || values == nullptr) return kStatusFailed;
  std::copy_n(values, row->count, Integers(*row));
  return kStatusOk;
}

// --- the item ------------------------------------------------------------------------------------

// Most values are undefined: all are set so first, then the other kinds row by row.
ZelStatus BankBase_i::Clear() {
  source_[0] = '\0';
  std::fill_n(sourceFlags_.get(), sourceCount_, std::uint8_t{0});
  std::fill_n(values_.reals, fields_.Reals(), gen_GetUndefDouble());
  std::fill_n(values_.integers, fields_.Integers(), gen_GetUndefInt());
  if (!fields_.HasOwnInitialValues()) return kStatusOk;
  for (Field const& row : fields_.Rows()) {
    if (row.type == kText) *Text(row) = '\0';
    if (row.type == kEnumerated) std::fill_n(Integers(row), row.count, row.enumeration->Default());
  }
  return kStatusOk;
}

ZelStatus BankBase_i::ReadBlock(std::int32_t const* block, std::int32_t format) {
  if (!HasFormat(format) || block == nullptr) return kStatusFailed;
  for (BlockRun const& run : fields_.Runs()) {
    if (run.format > format) continue;
    std::int32_t const* words = block + run.firstWord;
    switch (run.type) {
      case kInteger:
      case kEnumerated: std::copy_n(words, run.count, values_.integers + run.firstValue); break;
      case kReal: Trim7Words(words, run.count, values_.reals + run.firstValue); break;
      case kText: WordsToText(words, run.count, values_.characters + run.firstValue); break;
    }
  }
  return kStatusOk;
}

namespace {

void ClearColumn(Field const& field, void* to) {
  switch (field.type) {
    case kInteger:
      std::fill_n(static_cast<std::int32_t*>(to), field.count, gen_GetUndefInt());
      break;
    case kEnumerated:
      std::fill_n(static_cast<std::int32_t*>(to), field.count, field.enumeration->Default());
      break;
    case kReal: std::fill_n(static_cast<double*>(to), field.count, gen_GetUndefDouble()); break;
    case kText: *static_cast<char*>(to) = '\0'; break;
  }
}

}  // namespace

void BankBase_i::DecodeColumn(Field const& field, std::int32_t const* record, std::int32_t format,
                              void* to) const {
  if (field.format > format) return ClearColumn(field, to);
  ForEachRun(field, record, [&](std::int32_t const* words, std::int32_t first, std::int32_t count) {
    switch (field.type) {
      case kInteger:
      case kEnumerated: std::copy_n(words, count, static_cast<std::int32_t*>(to) + first); break;
      case kReal: Trim7Words(words, count, static_cast<double*>(to) + first); break;
      case kText: WordsToText(words, field.RunWords(), static_cast<char*>(to)); break;
    }
  });
}

ZelStatus BankBase_i::WriteBlock(std::int32_t* block, std::int32_t format) {
  if (!HasFormat(format) || block == nullptr) return kStatusFailed;
  std::fill_n(block, fields_.RecordWords(format), 0);
  for (BlockRun const& run : fields_.Runs()) {
    if (run.format > format) continue;
    std::int32_t* words = block + run.firstWord;
    switch (run.type) {
      case kInteger:
      case kEnumerated: std::copy_n(values_.integers + run.firstValue, run.count, words); break;
      case kReal: {
        double const* values = values_.reals + run.firstValue;
        std::transform(values, values + run.count, words, WordOfReal);
        break;
      }
      case kText: TextToWords(values_.characters + run.firstValue, words, run.count); break;
    }
  }
  return kStatusOk;
}

// --- sources -------------------------------------------------------------------------------------

ZelStatus BankBase_i::GetSource(char* text, std::uint8_t* isProtected) {
  if (NothingWanted(text, isProtected)) return kStatusFailed;
  GiveText(source_, text, sizeof source_);
  Give(isProtected, sourceProtected_ ? 1 : 0);
  return kStatusOk;
}

ZelStatus BankBase_i::GetSourceFlags(std::uint8_t* flags) {
  if (flags == nullptr) return kStatusFailed;
  std::copy_n(sourceFlags_.get(), sourceCount_, flags);
  return kStatusOk;
}

ZelStatus BankBase_i::GetRefBankName(char const*, char* name) {
  if (name == nullptr) return kStatusFailed;
  *name = '\0';
  return kStatusOk;
}

ZelStatus BankBase_i::SetSource(LibFile* library, char const* bankName, std::uint8_t isProtected) {
  char* const last = source_ + sizeof source_ - 1;
  char* end = source_;
  auto const append = [&](std::string_view text) {
    end = std::copy_n(text.begin(), std::min<std::ptrdiff_t>(std::ssize(text), last - end), end);
  };
  append(library == nullptr ? std::string_view() : TextOrEmpty(library->GetLibName()));
  append(":");
  append(TextOrEmpty(bankName));
  while (end - source_ > 1 && end[-1] == ' ') --end;  // never the first character
  *end = '\0';
  sourceProtected_ = isProtected != 0;
  return kStatusOk;
}

ZelStatus BankBase_i::SetSourceList(std::int32_t count, std::uint8_t const* found,
                                    std::uint8_t const* isProtected) {
  // The new flags are allocated first: if memory is short, the old ones and their number remain.
  std::int32_t const size = std::max(count, 0);
  if (size > 0 && (found == nullptr || isProtected == nullptr)) return kStatusFailed;
  auto flags = std::make_unique<std::uint8_t[]>(static_cast<std::size_t>(size));
  std::copy_n(found, size, flags.get());
  sourceFlags_ = std::move(flags);
  sourceCount_ = size;
  auto const isSet = [](std::uint8_t flag) { return flag != 0; };
  sourceProtected_ = std::any_of(isProtected, isProtected + sourceCount_, isSet);
  auto const hits = std::count_if(found, found + sourceCount_, isSet);
  if (hits >= 2) CopyText("Multiple", source_, sizeof source_);
  if (hits == 0) source_[0] = '\0';
  return kStatusOk;
}

}  // namespace zel
