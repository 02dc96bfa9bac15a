// Banks of one component whose blocks are coded by hand: alpha coefficients, and curves of an
// interaction parameter against molecular weight.
#include <algorithm>
#include <bit>
#include <cstddef>
#include <iterator>
#include <tuple>
#include <utility>

#include "banks/typed_bank.h"
#include "frame/trim7.h"

namespace zel {
namespace {

double RealOf(std::int32_t word) { return Trim7(std::bit_cast<float>(word)); }
std::int32_t WordOf(double value) { return std::bit_cast<std::int32_t>(static_cast<float>(value)); }

// --- ALPHA ---------------------------------------------------------------------------------------

struct AlphaItem {
  std::int32_t refCode;
  std::int32_t eos[3];
  std::int32_t form[3];
  double deviation[3];
  double coef[9];
};

constexpr FieldRow kAlphaRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"refCode", "Reference code", kInteger, 1, "", kByHand, 1, offsetof(AlphaItem, refCode)},
    {"eos", "eos", kInteger, 3, "", kByHand, 1, offsetof(AlphaItem, eos)},
    {"form", "form", kInteger, 3, "", kByHand, 1, offsetof(AlphaItem, form)},
    {"deviation", "deviation", kReal, 3, "", kByHand, 1, offsetof(AlphaItem, deviation)},
    {"coef", "coef", kReal, 9, "", kByHand, 1, offsetof(AlphaItem, coef)},
};

constexpr auto kAlphaArguments =
    std::make_tuple(&AlphaItem::eos, &AlphaItem::form, &AlphaItem::deviation, &AlphaItem::coef,
                    &AlphaItem::refCode);

// The block: "refCode", then three groups of five words - a packed number, "deviation" and three
// coefficients.
constexpr std::int32_t kAlphaWords = 16;
constexpr std::size_t kAlphaGroups = 3;
constexpr std::size_t kCoefficientsOfGroup = 3;
constexpr std::size_t WordOfGroup(std::size_t group) { return 1 + 5 * group; }

// eos x 100 + form; an undefined one of the two counts as 0 and comes back as 0 from the file.
constexpr std::int32_t kEosFactor = 100;

std::int32_t PackedNumber(std::int32_t eos, std::int32_t form) {
  bool const noEos = gen_IsUndefInt(eos);
  bool const noForm = gen_IsUndefInt(form);
  if (noEos && noForm) return gen_GetUndefInt();
  auto const scaled = noEos ? 0U : static_cast<std::uint32_t>(eos) * kEosFactor;
  return static_cast<std::int32_t>(scaled + (noForm ? 0U : static_cast<std::uint32_t>(form)));
}

class Alpha_i final : public TypedBank<AlphaItem, IZelAlpha> {
 public:
  Alpha_i(BankType const& type, ZelIid const& id)
      : TypedBank<AlphaItem, IZelAlpha>(type, Fields(), id) {
    this->Clear();
  }

  ZelStatus GetData(std::int32_t* eos, std::int32_t* form, double* deviation, double* coef,
                    std::int32_t* refCode) override {
    return GiveData(this->item_, kAlphaArguments, eos, form, deviation, coef, refCode);
  }
  ZelStatus PutData(std::int32_t const* eos, std::int32_t const* form, double const* deviation,
                    double const* coef, std::int32_t refCode) override {
    return TakeData(this->item_, kAlphaArguments, eos, form, deviation, coef, refCode);
  }

  ZelStatus ReadBlock(std::int32_t const* block, std::int32_t format) override {
    if (!HasFormat(format)) return kStatusFailed;
    item_.refCode = block[0];
    for (std::size_t g = 0; g < kAlphaGroups; ++g) {
      std::int32_t const* words = block + WordOfGroup(g);
      bool const undefined = gen_IsUndefInt(words[0]);
      item_.eos[g] = undefined ? words[0] : words[0] / kEosFactor;
      item_.form[g] = undefined ? words[0] : words[0] % kEosFactor;
      item_.deviation[g] = RealOf(words[1]);
      std::transform(words + 2, words + 2 + kCoefficientsOfGroup,
                     item_.coef + g * kCoefficientsOfGroup, RealOf);
    }
    return kStatusOk;
  }

  ZelStatus WriteBlock(std::int32_t* block, std::int32_t format) override {
    if (!HasFormat(format)) return kStatusFailed;
    block[0] = item_.refCode;
    for (std::size_t g = 0; g < kAlphaGroups; ++g) {
      std::int32_t* words = block + WordOfGroup(g);
      words[0] = PackedNumber(item_.eos[g], item_.form[g]);
      words[1] = WordOf(item_.deviation[g]);
      double const* coefficients = item_.coef + g * kCoefficientsOfGroup;
      std::transform(coefficients, coefficients + kCoefficientsOfGroup, words + 2, WordOf);
    }
    return kStatusOk;
  }

 private:
  static FieldTable const& Fields() {
    static constexpr FieldTable fields = [] {
      FieldTable table(1, std::size(kAlphaRows), kAlphaRows);
      table.SetRecordLength(1, kAlphaWords);
      return table;
    }();
    return fields;
  }
};

// --- MWPR, MWSRK ---------------------------------------------------------------------------------

struct CurveItem {
  std::int32_t count;
  double mw[12];
  double kij[12];
};

constexpr FieldRow kCurveRows[] = {
    // name, label, type, count, unit, block offset, format, member
    {"count", "count", kInteger, 1, "", kByHand, 1, offsetof(CurveItem, count)},
    {"mw", "mw", kReal, 12, "", kByHand, 1, offsetof(CurveItem, mw)},
    {"kij", "kij", kReal, 12, "", kByHand, 1, offsetof(CurveItem, kij)},
};

// The block: "count", then twelve pairs of "mw" and "kij", all of them whatever "count" says.
constexpr std::int32_t kCurvePoints = 12;
constexpr std::int32_t kCurveWords = 1 + 2 * kCurvePoints;

// Points that a count names; a stored count can be anything.
std::int32_t UsablePoints(std::int32_t count) { return std::clamp(count, 0, kCurvePoints); }

template <typename Interface>
class CurveBank final : public TypedBank<CurveItem, Interface> {
 public:
  CurveBank(BankType const& type, ZelIid const& id)
      : TypedBank<CurveItem, Interface>(type, Fields(), id) {
    this->Clear();
  }

  // Points behind the count come out as 0.
  ZelStatus GetData(std::int32_t* count, double* mw, double* kij) override {
    *count = this->item_.count;
    CopyPoints(this->item_.count, this->item_.mw, mw);
    CopyPoints(this->item_.count, this->item_.kij, kij);
    return kStatusOk;
  }
  ZelStatus PutData(std::int32_t count, double const* mw, double const* kij) override {
    this->item_.count = count;
    CopyPoints(count, mw, this->item_.mw);
    CopyPoints(count, kij, this->item_.kij);
    return kStatusOk;
  }

  ZelStatus ReadBlock(std::int32_t const* block, std::int32_t format) override {
    if (!this->HasFormat(format)) return kStatusFailed;
    this->item_.count = block[0];
    for (std::size_t k = 0; k < kCurvePoints; ++k) {
      this->item_.mw[k] = RealOf(block[1 + 2 * k]);
      this->item_.kij[k] = RealOf(block[2 + 2 * k]);
    }
    return kStatusOk;
  }
  ZelStatus WriteBlock(std::int32_t* block, std::int32_t format) override {
    if (!this->HasFormat(format)) return kStatusFailed;
    block[0] = this->item_.count;
    for (std::size_t k = 0; k < kCurvePoints; ++k) {
      block[1 + 2 * k] = WordOf(this->item_.mw[k]);
      block[2 + 2 * k] = WordOf(this->item_.kij[k]);
    }
    return kStatusOk;
  }

 private:
  static void CopyPoints(std::int32_t count, double const* from, double* to) {
    std::int32_t const used = UsablePoints(count);
    std::copy_n(from, used, to);
    std::fill(to + used, to + kCurvePoints, 0.0);
  }

  static FieldTable const& Fields() {
    static constexpr FieldTable fields = [] {
      FieldTable table(1, std::size(kCurveRows), kCurveRows);
      table.SetRecordLength(1, kCurveWords);
      return table;
    }();
    return fields;
  }
};

using MwPr_i = CurveBank<IZelMwPr>;
using MwSrk_i = CurveBank<IZelMwSrk>;

}  // namespace

IZelBankDef* NewAlpha() { return MakeBank<Alpha_i>("ALPHA", IID_IZelAlpha); }
IZelBankDef* NewMwPr() { return MakeBank<MwPr_i>("MWPR", IID_IZelMwPr); }
IZelBankDef* NewMwSrk() { return MakeBank<MwSrk_i>("MWSRK", IID_IZelMwSrk); }

}  // namespace zel
