// How a relation reads the data of a substance.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "verify/judge/substance.h"
#include "verify/judge/tension.h"

namespace zel {

// Reads data of one record, and of the others of its substance where it has none. Remembers what
// was read: those are the data that a deviation puts in doubt.
//
// What is missing is NaN, so that a relation computes on; an outcome that is not a number is
// ignored.
class Reading {
 public:
  Reading(Record const& own, Substance const& substance) : own_(own), substance_(substance) {}

  double Constant(std::uint32_t index, Stake stake = Stake::kFull);
  // Value and derivative per K of a curve at a temperature within its range.
  double At(std::uint32_t curve, double kelvin, Stake stake = Stake::kFull);
  double Slope(std::uint32_t curve, double kelvin, Stake stake = Stake::kFull);
  // The range of the record's own curve; unbounded if it has none or a record without a range.
  KelvinRange Range(std::uint32_t curve) const;
  // The same, remembered as read, for relations about the range itself.
  KelvinRange OwnRange(std::uint32_t curve, Stake stake = Stake::kFull);
  // Reads only the record's own data, without falling back to other records: for relations about
  // one curve by itself.
  double OwnConstant(std::uint32_t index, Stake stake = Stake::kFull);
  double OwnAt(std::uint32_t curve, double kelvin, Stake stake = Stake::kFull);
  double OwnSlope(std::uint32_t curve, double kelvin, Stake stake = Stake::kFull);

  Record const& Own() const { return own_; }
  Substance const& Of() const { return substance_; }
  // The atoms of an element in the formula; 0 without a formula.
  double Atoms(char const* element) const;
  bool HasFormula() const { return !substance_.Atoms().empty(); }

  // What was read.
  std::vector<Tension::Part> const& Parts() const { return parts_; }
  // The claim that was read for a datum; its own one if it was not read.
  Claim ClaimOf(Datum datum) const;

 private:
  double Note(Record const* from, Datum datum, double value, Stake stake);

  Record const& own_;
  Substance const& substance_;
  std::vector<Tension::Part> parts_;
};

// What a relation found: the value of a datum, the value that the other data yield, and the
// difference in tolerances.
struct Outcome {
  Datum about;
  double value;
  double expected;
  double deviation;
  double temperature = gen_GetUndefDouble();  // K, for the value of a curve
  char const* unit = nullptr;                 // of both values, if it is not the unit of the datum
  char const* quantity = "";  // "the slope of ", if both are not values of the datum
  // An undefined difference is not an outcome.
  static std::optional<Outcome> Relative(Datum about, double value, double expected,
                                         double tolerance);
  static std::optional<Outcome> Absolute(Datum about, double value, double expected,
                                         double tolerance);
  // The difference of the logarithms; a value that is not positive where a positive one is expected
  // deviates by far.
  static std::optional<Outcome> Factor(Datum about, double value, double expected,
                                       double logTolerance);
};

struct Relation {
  JudgeRule rule;
  char const* from;  // the origin of the expected value: "the latent heat at NBP"
  // Empty if data that it needs are missing.
  std::optional<Outcome> (*find)(Reading& reading, JudgeRule const& rule);
};

// The relations within a component, each evaluated once for each record of a substance.
std::vector<Relation const*> const& AllRelations();
// Appends the comparisons of all relations for a substance; each set of data is compared once.
void AddRelations(Substance const& substance, std::vector<Tension>& tensions);
// Appends the comparisons between each two records.
void AddSourceComparisons(Substance const& substance, std::vector<Tension>& tensions);

// The rules of these comparisons.
std::span<JudgeRule const> SourceRules();

}  // namespace zel
