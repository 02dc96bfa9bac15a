#include "desk/face/units.h"

#include <zelaccess/DeskErrors.h>
#include <zelaccess/Units.h>
#include <zelaccess/ZelAccess.h>

#include <cstdint>

namespace zel::desk {
namespace {

// The word for internal units. The catalogues show no unit for a pure number.
constexpr char kInternal[] = "QRInternal";

}  // namespace

UnitOfValues::UnitOfValues(std::string const& internal, char const* dimension,
                           std::string const& word, std::string const& what)
    : internal_(internal), dimension_(dimension), text_(internal), isInternal_(word.empty()) {
  if (isInternal_ || word == internal) {
    isInternal_ = true;
    return;
  }
  zel::InitZelAccess();
  char text[zel::kUnitTextSize] = {};
  if (!zel::FindUnit(dimension, word.c_str(), text)) {
    throw UnknownWord("", word + " is not a unit of " + what + ", which is " +
                              (internal.empty() ? "a pure number" : "in " + internal));
  }
  text_ = text;
}

void UnitOfValues::Convert(double* values, std::size_t count) const {
  if (isInternal_) return;
  if (!zel::ConvertUnits(dimension_.c_str(), kInternal, text_.c_str(), values,
                         static_cast<std::int32_t>(count))) {
    throw UnknownWord("", "a value in " + internal_ + " has no counterpart in " + text_);
  }
}

double UnitOfValues::Step() const {
  double ends[2] = {0.0, 1.0};
  Convert(ends, 2);
  return ends[1] - ends[0];
}

}  // namespace zel::desk
