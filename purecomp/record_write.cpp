// Writing a component.
#include <algorithm>
#include <array>
#include <bit>

#include "purecomp/record_format.h"
#include "purecomp/record_io.h"
#include "store/block_address.h"
#include "store/packed_text.h"

namespace zel {
namespace {

namespace r = record;
using Index = std::size_t;

std::int32_t WordOf(double value) noexcept {
  return std::bit_cast<std::int32_t>(static_cast<float>(value));
}

std::int32_t Packed(std::uint32_t high, std::uint32_t factor, std::uint32_t low) noexcept {
  return static_cast<std::int32_t>(high * factor + low);  // wraps around
}

void PutCodes(std::uint32_t const* codes, int count, std::int32_t* words) noexcept {
  for (int i = 0; i < count; i += 2) {
    words[i / 2] = static_cast<std::int32_t>((codes[i] & 0xFFFF) | codes[i + 1] << 16);
  }
}

class Record {
 public:
  Record(Component const& component, LibFile_i& library) : c_(component), library_(library) {}

  void Write(std::int32_t& address) {
    std::int32_t const old = address == 0 ? format::kNullAddress : address;
    if (old != format::kNullAddress) TakeOldAddresses(old);
    Texts();
    WriteStructures();
    Constants();
    WriteCorrelations();
    std::int32_t written = old;
    WriteBlock(written, r::kMainWords, main_.data());
    address = written;
  }

 private:
  void WriteBlock(std::int32_t& address, int words, std::int32_t const* buffer) {
    if (library_.WriteBlock(address, words, buffer, 0) != words * format::kWordBytes) {
      library_.Store().Throw(address, BlockFault::kNotWritten);
    }
  }

  // True if a run allocated for `oldWords` words has room for `words` words.
  bool Holds(std::int32_t address, std::int32_t oldWords, std::int32_t words) const {
    std::int32_t const file = BlockAddress::Split(address).file;
    std::int32_t const size = library_.Store().BlockWords(file);
    if (size <= 0 || oldWords <= 0) return false;
    return (oldWords - 1) / size >= (words - 1) / size;
  }

  // A block of an older item that is too short for the present layout is not reused: the write
  // would run over its neighbour.
  void TakeOldAddresses(std::int32_t address) {
    std::array<std::int32_t, r::kMainWords> old{};
    library_.Store().ReadOrThrow(address, r::kMainWords, old.data());
    std::int32_t const structure = old[r::kStructureAddress];
    std::int32_t const structureWords = old[r::kStructureLength];
    bool const sameKind = structure / format::kTypeFactor == address / format::kTypeFactor;
    if (structure != 0 && sameKind && structureWords <= r::kLongestStructure &&
        Holds(structure, structureWords, r::kStructureWords)) {
      structureAddress_ = structure;
    }
    std::int32_t const correlations = old[r::kCorrelationAddress];
    if (correlations != 0 && correlations != format::kNullAddress &&
        Holds(correlations, old[r::kCorrelationLength], r::kCorrelationWords)) {
      correlationAddress_ = correlations;
    }
  }

  void Texts() {
    main_[r::kNumber] = c_.number;
    main_[r::kRefCode] = c_.refCode;
    main_[r::kCasNumber] = c_.casNumber;
    main_[r::kPhase] = c_.phase;
    for (Index i = 0; i < kLibraryIds; ++i) {
      TextToWords(c_.libraryIds[i].data(), &main_[r::kIds + r::kIdWords * i], r::kIdWords);
    }
    TextToWords(c_.name.data(), &main_[r::kName], r::kNameWords);
    TextToWords(c_.formula.data(), &main_[r::kFormula], r::kFormulaWords);
    TextToWords(c_.smiles.data(), &main_[r::kSmiles], r::kSmilesWords);
    main_[r::kKeepFormula] = c_.keepFormula ? 1 : 0;
    Structure const& legacy = c_.structures[0];
    for (Index i = 0; i < static_cast<Index>(std::clamp(legacy.count, 0, kGroups)); ++i) {
      main_[r::kLegacyGroups + i] =
          Packed(static_cast<std::uint32_t>(legacy.groupCounts[i]), r::kGroupFactor,
                 static_cast<std::uint32_t>(legacy.groupIds[i]));
    }
  }

  void WriteStructures() {
    bool const any = std::any_of(c_.structures.begin() + 1, c_.structures.end(),
                                 [](Structure const& s) { return s.count != 0; });
    main_[r::kStructureAddress] = format::kNullAddress;
    if (!any && structureAddress_ == format::kNullAddress) return;
    std::array<std::int32_t, r::kStructureWords> block{};
    for (Index model = 1; model < kModels; ++model) {
      Structure const& s = c_.structures[model];
      std::int32_t* words = &block[r::kStructureEntry * (model - 1)];
      words[0] = s.count;
      std::copy(s.groupIds.begin(), s.groupIds.end(), words + 1);
      std::copy(s.groupCounts.begin(), s.groupCounts.end(), words + 1 + kGroups);
    }
    WriteBlock(structureAddress_, r::kStructureWords, block.data());
    main_[r::kStructureAddress] = structureAddress_;
    main_[r::kStructureLength] = r::kStructureWords;
  }

  void Constants() {
    for (Index i = 0; i < kConstantsOnFile; ++i) {
      if (IsOnFile(i)) main_[r::kConstants + i] = WordOf(c_.fixed[i]);
    }
    PutCodes(c_.fixedRefs.data(), kConstantsOnFile, &main_[r::kConstantCodes]);
  }

  void WriteCorrelations() {
    std::array<std::int32_t, r::kCorrelationWords> block{};
    for (Index i = 0; i < kCorrelations; ++i) {
      CorrelationRecord const& own = c_.correlations[i];
      if (own.present) Encode(own, &block[r::kCorrelationEntry * i]);
    }
    WriteBlock(correlationAddress_, r::kCorrelationWords, block.data());
    main_[r::kCorrelationAddress] = correlationAddress_;
    main_[r::kCorrelationLength] = r::kCorrelationWords;
    for (Index i = 0; i < kCorrelations; ++i) {
      CorrelationRecord const& own = c_.correlations[i];
      if (!own.present) continue;
      std::int32_t* entry = &main_[r::kDirectory + r::kDirectoryEntry * i];
      entry[0] = static_cast<std::int32_t>(r::kCorrelationEntry * i);
      entry[1] = static_cast<std::int32_t>(static_cast<std::uint32_t>(own.coefficientCount) +
                                           r::kCoefficientsAt);
      entry[2] = correlationAddress_;
    }
    PutCodes(c_.correlationRefs.data(), kCorrelations, &main_[r::kCorrelationCodes]);
  }

  static void Encode(CorrelationRecord const& own, std::int32_t* words) {
    auto const u = [](std::int32_t n) { return static_cast<std::uint32_t>(n); };
    words[r::kEquationAndUnit] =
        Packed(u(own.equation), r::kMillion, r::kThousand + u(own.tempUnit));
    words[r::kBases] = static_cast<std::int32_t>(
        (u(own.logBasis) * r::kThousand + u(own.moleWtBasis)) * r::kThousand);
    words[r::kCountAndUnit] = Packed(u(own.coefficientCount), r::kMillion, u(own.propUnit));
    words[r::kTMin] = WordOf(own.tMin);
    words[r::kTMax] = WordOf(own.tMax);
    std::transform(own.coefficients.begin(), own.coefficients.end(), words + r::kCoefficientsAt,
                   WordOf);
  }

  Component const& c_;
  LibFile_i& library_;
  std::array<std::int32_t, r::kMainWords> main_{};
  std::int32_t structureAddress_ = format::kNullAddress;
  std::int32_t correlationAddress_ = format::kNullAddress;
};

}  // namespace

void WriteRecord(Component const& component, std::int32_t& address, LibFile_i& library) {
  Record(component, library).Write(address);
}

}  // namespace zel
