// A row of a bank type's field table, as in the printed tables.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace zel {

enum FieldType : std::int32_t { kInteger = 0, kReal = 1, kText = 2, kEnumerated = 3 };

inline constexpr std::int32_t kWordBytes = 4;

// Where a field's elements are in the data block. A plain offset, in bytes from the start of the
// block, means that they are contiguous.
struct BlockPlace {
  constexpr BlockPlace(std::int32_t at) : offset(at) {}

  std::int32_t offset;
  std::int32_t run = 0;      // contiguous elements, 0 for all of them
  std::int32_t step = 0;     // bytes from one run to the next
  bool codedByHand = false;  // the type reads and writes these words itself, see ByHand
};

// Runs of elements at a fixed distance: element 0 at the offset, element `run` is `step` bytes
// further on.
constexpr BlockPlace Runs(std::int32_t offset, std::int32_t run, std::int32_t step) {
  BlockPlace place(offset);
  place.run = run;
  place.step = step;
  return place;
}
// Words that the type reads and writes itself. They count towards the length of the block.
constexpr BlockPlace ByHand(BlockPlace place) {
  place.codedByHand = true;
  return place;
}

// The values that an enumerated field can have, with their names.
struct EnumEntry {
  std::string_view name;  // at most 12 characters
  std::int32_t value;
};
struct Enumeration {
  std::span<EnumEntry const> entries;
  std::int32_t defaultIndex;

  // The value that Clear sets.
  constexpr std::int32_t Default() const {
    return entries[static_cast<std::size_t>(defaultIndex)].value;
  }
};

// What happens to a field when an item of an asymmetric pair is swapped.
enum class Turn : std::uint8_t { kStays, kExchanged, kNegated, kOneMinus };

// The special properties of a field. Each of the constants and functions below sets one.
struct FieldRule {
  bool isBound = false;    // a bound of the range: GetDataDefaulted returns it unchanged
  double byDefault = 0.0;  // what GetDataDefaulted returns for an undefined element
  Turn turn = Turn::kStays;
  std::string_view exchangedWith = {};  // the other field of the exchange
  std::string_view countedBy = {};      // the field that says how many elements are in use
  Enumeration const* enumeration = nullptr;
};

inline constexpr FieldRule kBound = {.isBound = true};
inline constexpr FieldRule kNegated = {.turn = Turn::kNegated};
inline constexpr FieldRule kOneMinus = {.turn = Turn::kOneMinus};
constexpr FieldRule DefaultsTo(double value) { return {.byDefault = value}; }
// Used in only one of the two rows.
constexpr FieldRule ExchangedWith(std::string_view other) {
  return {.turn = Turn::kExchanged, .exchangedWith = other};
}
// Typed operations return 0 for elements beyond the count, and store 0 there.
constexpr FieldRule CountedBy(std::string_view counter) { return {.countedBy = counter}; }
constexpr FieldRule OneOf(Enumeration const& enumeration) { return {.enumeration = &enumeration}; }

struct FieldRow {
  std::string_view name;   // also the XML tag; at most 12 characters
  std::string_view label;  // for people; 19 characters are kept
  FieldType type;
  std::int32_t count;     // elements; for a text its buffer, terminator included
  std::string_view unit;  // unit class in lower case, empty for none; at most 19 characters
  BlockPlace place;
  std::int32_t format;  // first record format that has the field
  FieldRule rule = {};
};

// Rows that recur in many types.
inline constexpr FieldRow kTMin = {"tMin", "Minimum temperature", kReal, 1, "temp", 4, 1, kBound};
inline constexpr FieldRow kTMax = {"tMax", "Maximum temperature", kReal, 1, "temp", 8, 1, kBound};
inline constexpr FieldRow kPMin = {"pMin", "Minimum pressure", kReal, 1, "pres", 12, 1, kBound};
inline constexpr FieldRow kPMax = {"pMax", "Maximum pressure", kReal, 1, "pres", 16, 1, kBound};
constexpr FieldRow RefCodeAt(std::int32_t offset) {
  return {"refCode", "Reference code", kInteger, 1, "", offset, 1};
}

}  // namespace zel
