// The fields of a bank type and what follows from them: the lengths of its records, where the
// values are in a bank, and the argument lists of the typed operations.
//
// Tables are constants: their first use allocates nothing, and they outlive any bank that a host
// releases late. A table that is too long or contradicts itself does not compile.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string_view>

#include "banks/field_row.h"
#include "frame/ascii.h"

namespace zel {

// A row as the banks use it.
struct Field {
  static constexpr std::size_t kNone = ~std::size_t{0};

  std::string_view name;
  std::string_view label;
  std::string_view unit;
  FieldType type = kInteger;
  std::int32_t count = 0;
  std::int32_t format = 0;
  std::size_t firstValue = 0;     // index among a bank's values of this type
  std::int32_t firstWord = 0;     // index in the data block
  std::int32_t runElements = 0;   // contiguous elements there
  std::int32_t stepWords = 0;     // words from one run to the next
  std::size_t exchanged = kNone;  // the row that the field is exchanged with
  std::size_t counter = kNone;    // the row that counts the elements in use
  Enumeration const* enumeration = nullptr;
  double byDefault = 0.0;
  Turn turn = Turn::kStays;
  bool isBound = false;
  bool codedByHand = false;

  constexpr bool IsInteger() const noexcept { return type == kInteger || type == kEnumerated; }
  constexpr std::int32_t RunWords() const noexcept {
    return type == kText ? (count + 2) / kWordBytes : runElements;
  }
  constexpr std::int32_t EndWord() const noexcept {
    return firstWord + (count / runElements - 1) * stepWords + RunWords();
  }
};

// Elements of one kind that are next to each other both in the data block and among the values of a
// bank, of one field or of several; a text is a run of its own.
struct BlockRun {
  FieldType type = kInteger;  // never kEnumerated
  std::int32_t format = 0;
  std::int32_t firstWord = 0;
  std::int32_t count = 0;  // of elements; for a text of words
  std::size_t firstValue = 0;
};

class FieldTable {
 public:
  static constexpr std::int32_t kFormats = 2;   // no type has more
  static constexpr std::size_t kMostRows = 20;  // callers of GetFieldList have room for this many
  static constexpr std::size_t kMostWords = 64;

  template <std::size_t N>
  requires(N <= kMostRows) constexpr explicit FieldTable(FieldRow const (&rows)[N]) {
    for (FieldRow const& row : rows) Add(row);
    for (std::size_t i = 0; i < N; ++i) {
      if (!rows[i].rule.exchangedWith.empty()) {
        fields_[i].exchanged = Partner(fields_[i], rows[i].rule.exchangedWith);
      }
      if (!rows[i].rule.countedBy.empty()) fields_[i].counter = Counter(rows[i].rule.countedBy);
    }
    Require(!WordsOverlap(), "two fields share a word of the block");
    for (Field const& field : Rows()) AddRuns(field);
  }
  // For a type without named fields; its block has one format.
  constexpr explicit FieldTable(std::int32_t recordWords) noexcept : formatCount_(1) {
    recordWords_[0] = recordWords;
  }

  constexpr std::span<Field const> Rows() const noexcept { return {fields_.data(), rowCount_}; }
  // What a block is decoded and encoded by, without the fields coded by hand.
  constexpr std::span<BlockRun const> Runs() const noexcept { return {runs_.data(), runCount_}; }
  // Whether the initial value of some field is not that of all fields of its kind.
  constexpr bool HasOwnInitialValues() const noexcept { return hasOwnInitialValues_; }
  constexpr std::int32_t FormatCount() const noexcept { return formatCount_; }
  constexpr std::int32_t MaxRecordWords() const noexcept {
    return std::max(recordWords_[0], recordWords_[1]);
  }
  // Format from 1.
  constexpr std::int32_t RecordWords(std::int32_t format) const noexcept {
    return recordWords_[static_cast<std::size_t>(format - 1)];
  }
  // The numbers of values that a bank of the type holds.
  constexpr std::size_t Reals() const noexcept { return reals_; }
  constexpr std::size_t Integers() const noexcept { return integers_; }
  constexpr std::size_t Characters() const noexcept { return characters_; }

  // The first row with this name, without regard to case, and one of the two types; null if the
  // table does not have one.
  constexpr Field const* Find(std::string_view name, FieldType type,
                              FieldType otherType) const noexcept {
    for (Field const& field : Rows()) {
      if ((field.type == type || field.type == otherType) && SameText(field.name, name)) {
        return &field;
      }
    }
    return nullptr;
  }
  // The row with exactly this name, for names written next to the table.
  constexpr Field const& operator[](std::string_view name) const { return fields_[IndexOf(name)]; }

  // A constant table for which the condition does not hold does not compile.
  static constexpr void Require(bool holds, char const* rule) {
    if (!holds) throw std::logic_error(rule);
  }

 private:
  static constexpr std::size_t kNameLimit = 12;
  static constexpr std::size_t kTextLimit = 19;

  // Appends a row and extends the record of its format to the field's end. Each format has its own
  // length: a later one extends to the end of the fields added under it.
  constexpr void Add(FieldRow const& row) {
    Require(row.name.size() <= kNameLimit && row.unit.size() <= kTextLimit, "a text is too long");
    Require(row.format >= 1 && row.format <= kFormats, "no such format");
    Require(row.count >= 1, "a field has elements");
    Require(row.place.offset >= 0 && row.place.offset % kWordBytes == 0, "fields start at a word");
    Field& field = fields_[rowCount_++];
    field.name = row.name;
    field.label = row.label.substr(0, kTextLimit);
    field.unit = row.unit;
    field.type = row.type;
    field.count = row.count;
    field.format = row.format;
    field.firstValue = TakeValues(row);
    field.firstWord = row.place.offset / kWordBytes;
    field.runElements = row.place.run == 0 ? row.count : row.place.run;
    field.stepWords = row.place.step / kWordBytes;
    field.codedByHand = row.place.codedByHand;
    field.isBound = row.rule.isBound;
    field.byDefault = row.rule.byDefault;
    field.turn = row.rule.turn;
    field.enumeration = row.rule.enumeration;
    Require(row.rule.turn == Turn::kStays || row.type == kReal, "only values turn");
    Require((row.type == kEnumerated) == (field.enumeration != nullptr), "who has an enumeration");
    Require(row.count % field.runElements == 0, "runs are of one length");
    hasOwnInitialValues_ |= row.type == kText || row.type == kEnumerated;
    formatCount_ = std::max(formatCount_, row.format);
    std::int32_t& words = recordWords_[static_cast<std::size_t>(row.format - 1)];
    words = std::max(words, field.EndWord());
    Require(words <= static_cast<std::int32_t>(kMostWords), "the block is too long");
  }

  // Reserves room for the elements of a row; returns the index of the first.
  constexpr std::size_t TakeValues(FieldRow const& row) {
    std::size_t& values = row.type == kReal ? reals_ : row.type == kText ? characters_ : integers_;
    std::size_t const first = values;
    values += static_cast<std::size_t>(row.count);
    return first;
  }

  constexpr void AddRuns(Field const& field) {
    if (field.codedByHand) return;
    BlockRun run = {field.IsInteger() ? kInteger : field.type, field.format, field.firstWord,
                    field.RunWords(), field.firstValue};
    for (std::int32_t i = 0; i < field.count; i += field.runElements) {
      AddRun(run);
      run.firstWord += field.stepWords;
      run.firstValue += static_cast<std::size_t>(field.runElements);
    }
  }
  // Adds the run to the last one where it continues that.
  constexpr void AddRun(BlockRun const& run) {
    bool const continues = runCount_ > 0 && Continues(runs_[runCount_ - 1], run);
    if (continues) {
      runs_[runCount_ - 1].count += run.count;
    } else {
      runs_[runCount_++] = run;  // a table with too many does not compile
    }
  }
  static constexpr bool Continues(BlockRun const& last, BlockRun const& run) {
    return run.type != kText && last.type == run.type && last.format == run.format &&
           last.firstWord + last.count == run.firstWord &&
           last.firstValue + static_cast<std::size_t>(last.count) == run.firstValue;
  }

  constexpr std::size_t IndexOf(std::string_view name) const {
    for (std::size_t i = 0; i < rowCount_; ++i) {
      if (fields_[i].name == name) return i;
    }
    throw std::logic_error("no field has this name");
  }
  constexpr std::size_t Partner(Field const& field, std::string_view name) const {
    Field const& other = (*this)[name];
    Require(&other != &field && other.type == kReal && field.type == kReal, "what is exchanged");
    Require(other.count == field.count, "exchanged fields are of one length");
    Require(other.turn == Turn::kStays, "the other field is exchanged already");
    return IndexOf(name);
  }
  constexpr std::size_t Counter(std::string_view name) const {
    Require((*this)[name].type == kInteger && (*this)[name].count == 1, "what can count");
    return IndexOf(name);
  }

  constexpr bool WordsOverlap() const {
    std::array<bool, kMostWords> taken{};
    for (Field const& field : Rows()) {
      if (field.codedByHand) continue;
      std::int32_t word = field.firstWord;
      for (std::int32_t i = 0; i < field.count; i += field.runElements, word += field.stepWords) {
        for (std::int32_t k = 0; k < field.RunWords(); ++k) {
          bool& here = taken[static_cast<std::size_t>(word + k)];
          if (here) return true;
          here = true;
        }
      }
    }
    return false;
  }

  static constexpr std::size_t kMostRuns = 32;

  std::array<Field, kMostRows> fields_{};
  std::size_t rowCount_ = 0;
  std::array<BlockRun, kMostRuns> runs_{};
  std::size_t runCount_ = 0;
  bool hasOwnInitialValues_ = false;
  std::int32_t formatCount_ = 0;
  std::array<std::int32_t, kFormats> recordWords_{};
  std::size_t reals_ = 0;
  std::size_t integers_ = 0;
  std::size_t characters_ = 0;
};

// The fields that a typed operation passes, in the order of its arguments. Refers to the table.
class Arguments {
 public:
  template <std::size_t N>
  requires(N <= FieldTable::kMostRows) constexpr Arguments(FieldTable const& table,
                                                           std::string_view const (&names)[N])
      : table_(&table), count_(N) {
    for (std::size_t i = 0; i < N; ++i) {
      fields_[i] = &table[names[i]];
      auto const end = fields_.begin() + static_cast<std::ptrdiff_t>(i);
      FieldTable::Require(std::find(fields_.begin(), end, fields_[i]) == end,
                          "a name stands twice");
      bool const isCounted = fields_[i]->counter != Field::kNone;
      Field const* counter = isCounted ? &table.Rows()[fields_[i]->counter] : nullptr;
      FieldTable::Require(!isCounted || std::find(fields_.begin(), end, counter) != end,
                          "a counter comes before what it counts");
    }
  }

  constexpr std::span<Field const* const> List() const noexcept { return {fields_.data(), count_}; }
  constexpr bool AreAllOf(FieldTable const& table) const noexcept {
    return table_ == &table && count_ == table.Rows().size();
  }

 private:
  FieldTable const* table_;
  std::array<Field const*, FieldTable::kMostRows> fields_{};
  std::size_t count_;
};

}  // namespace zel
