// A substance: what all libraries together say about it.
#pragma once

#include <cstdint>
#include <deque>
#include <vector>

#include "verify/judge/record.h"

namespace zel {

class Substance {
 public:
  void Add(Record const& record) { records_.push_back(&record); }
  std::vector<Record const*> const& Records() const { return records_; }
  // The record whose value is the median of those that have the constant; null if none has it. Of
  // an even number of records, the lower of the two in the middle.
  Record const* MedianRecord(std::uint32_t constant) const;
  // The median of the values; undefined if no record has one.
  double Median(std::uint32_t constant) const;
  // The record with the median value of the curve at the temperature, as above.
  Record const* RecordAt(std::uint32_t curve, double kelvin) const;
  // The atoms of the first record that has them; empty if none has.
  Composition const& Atoms() const;

 private:
  std::vector<Record const*> records_;
};

// Puts records that are about the same substance together: those with the same CAS number; one
// without a CAS number belongs to those with its number, or else one of its IDs, unless their
// formula is another.
std::vector<Substance> SubstancesOf(std::deque<Record> const& records);

}  // namespace zel
