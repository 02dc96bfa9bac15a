// A comparison of data that are related by physics, by a second source or by kin.
#pragma once

#include <string>
#include <vector>

#include "verify/judge/record.h"

namespace zel {

// A rule by which data are compared. All are in one table of the public interface.
struct JudgeRule {
  char const* id;             // "vapor-pressure"
  char const* formula;        // "p(NBP) = 101.325 kPa", for people
  double tolerance;           // relative, or in the unit that `toleranceText` names
  char const* toleranceText;  // "2 %; uncertainty of handbook vapor pressures"
};

struct Claim {
  Record const* record = nullptr;
  Datum datum = Datum::Constant(0);
  friend bool operator==(Claim const&, Claim const&) = default;
};

// How much a mistake in a datum would show in the comparison.
enum class Stake : std::uint8_t {
  kFull,   // a mistake of 5 % is a deviation of the order of the tolerance, or more
  kMinor,  // only a gross one
};

struct Tension {
  struct Part {
    Claim claim;
    Stake stake = Stake::kFull;
  };

  JudgeRule const* rule = nullptr;
  std::vector<Part> parts;  // the data that were read; each can be the wrong one
  Claim about;              // the datum that `value` is of, one of the parts
  double value = gen_GetUndefDouble();
  double expected = gen_GetUndefDouble();  // the value that the others yield
  std::string unit;                        // of both
  std::string quantity;                    // "the slope of ", if both are not values of the datum
  double temperature = gen_GetUndefDouble();  // K, of a curve's value
  // The difference in tolerances: the data agree up to 1.
  double deviation = 0.0;
  // The comparison is about the range of a curve, not its values.
  bool isOfRange = false;
  // The expected value is that of the other part, which is the same datum of another record.
  bool isBetweenSources = false;
  // What the expected value comes from: "the latent heat at NBP", "crc.lb1 CRC".
  std::string from;
};

}  // namespace zel
