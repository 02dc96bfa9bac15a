// A pure component as the checks read it.
#pragma once

#include <cstdint>
#include <span>

#include "maint/face_ref.h"
#include "purecomp/pure_comp.h"
#include "zelaccess/Identity.h"
#include "zelaccess/Verify.h"

namespace zel {

inline constexpr std::int32_t kKelvin = 10;

inline bool IsDefined(double value) { return !gen_IsUndefDouble(value); }

std::span<ZelConstantInfo const> ConstantRows();
// The row of a constant that has a keyword.
ZelConstantInfo const& ConstantRow(zelProperties index);
std::span<ZelCorrelationInfo const> CorrelationRows();

// The letter of the unit of temperatures of a record.
char const* TemperatureLetter(std::int32_t unit);

class ComponentView {
 public:
  // A new component. Throws std::bad_alloc.
  ComponentView();
  // A component that must outlive this object.
  explicit ComponentView(PureComp_i& component) : bank_(&component) {}

  IZelBankDef* Def() const noexcept { return bank_; }
  IZelPureComp* Face() const noexcept { return bank_; }
  ZelIdentity Identity() const;
  double Constant(std::uint32_t index) const { return Data().fixed[index]; }
  std::uint32_t ConstantCode(std::uint32_t index) const { return Data().fixedRefs[index]; }
  std::uint32_t CorrelationCode(std::uint32_t index) const { return Data().correlationRefs[index]; }
  // The record of a correlation; null if the component does not have it.
  CorrelationRecord const* Record(std::uint32_t index) const;
  static std::span<double const> Coefficients(CorrelationRecord const& record);
  // A value at a temperature in the record's unit; undefined if the correlation has no value there.
  double ValueAt(std::uint32_t index, double temperature) const;
  // A value at a temperature in K, inside the record's range only; undefined otherwise.
  double InsideAt(std::uint32_t index, double kelvin) const;

 private:
  Component const& Data() const noexcept { return bank_->Data(); }

  FaceRef<IZelBankDef> owner_;  // empty for a component of a caller
  PureComp_i* bank_;
};

}  // namespace zel
