// Reading a component: the merge.
#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#include "frame/ascii.h"
#include "frame/trim7.h"
#include "purecomp/record_format.h"
#include "purecomp/record_io.h"
#include "store/block_address.h"
#include "store/packed_text.h"

namespace zel {
namespace {

namespace r = record;
using Index = std::size_t;

double RealOf(std::int32_t word) noexcept { return Trim7(std::bit_cast<float>(word)); }

// The code of 16 bits at `index`.
std::uint32_t CodeAt(std::int32_t const* words, int index) noexcept {
  auto const word = static_cast<std::uint32_t>(words[index / 2]);
  return index % 2 == 0 ? word & 0xFFFF : word >> 16;
}

class Merge {
 public:
  Merge(Component& component, LibFile_i& library, RecordSource source)
      : c_(component), library_(library), source_(source) {}

  ZelStatus Run(std::int32_t address) {
    // Everything is read before anything is taken: a block that cannot be read leaves the component
    // as it is.
    Read(address, r::kMainWords, main_.data());
    CheckStructureReference(address);
    ReadStructures();
    ReadCorrelations();
    SourceTable::Index source = 0;
    c_.sources.Set(source, source_.text);  // what may allocate does so before anything is taken
    Identity();
    LibraryIds();
    Texts();
    LegacyStructure();
    OtherStructures();
    Constants();
    Correlations();
    c_.sources.Set(source, "");
    return taken_ ? kStatusOk : kStatusNothingNew;
  }

 private:
  void Read(std::int32_t address, std::int32_t words, std::int32_t* buffer) {
    library_.Store().ReadOrThrow(address, words, buffer);
  }

  void ReadStructures() {
    std::int32_t const length = main_[r::kStructureLength];
    if (length <= 0) return;
    Read(main_[r::kStructureAddress], std::min(length, r::kStructureWords), structures_.data());
  }

  void ReadCorrelations() {
    std::int32_t const address = main_[r::kCorrelationAddress];
    std::int32_t const length = main_[r::kCorrelationLength];
    if (address == 0 || length <= 0) {
      ReadOldLayout();
    } else if (address != format::kNullAddress) {
      Read(address, std::min(length, r::kCorrelationWords), correlations_.data());
    }
  }

  // A structure block must be in a library of the same kind, or it counts as absent.
  void CheckStructureReference(std::int32_t address) {
    std::int32_t const length = main_[r::kStructureLength];
    bool const good =
        length >= 1 && length <= r::kLongestStructure &&
        main_[r::kStructureAddress] / format::kTypeFactor == address / format::kTypeFactor;
    if (good) return;
    main_[r::kStructureAddress] = format::kNullAddress;
    main_[r::kStructureLength] = 0;
  }

  void NoteIdentity(zelIdentitySources which) {
    c_.sources.Set(c_.identitySources[which], source_.text);
    c_.identitySourceFlags[which] = 0;
  }

  // Taking a zero does not count as new data.
  void TakeNumber(std::int32_t& own, r::MainWord word) {
    own = main_[static_cast<Index>(word)];
    if (own != 0) taken_ = true;
  }

  void Identity() {
    if (c_.number == 0) TakeNumber(c_.number, r::kNumber);
    if (c_.refCode == 0) TakeNumber(c_.refCode, r::kRefCode);
    if (c_.casNumber == 0) {
      TakeNumber(c_.casNumber, r::kCasNumber);
      NoteIdentity(sourceCas);
    }
  }

  void LibraryIds() {
    for (int i = 0; i < kLibraryIds; ++i) {
      std::array<char, 9> id;
      WordsToText(&main_[static_cast<Index>(r::kIds + r::kIdWords * i)], r::kIdWords, id.data());
      if (id[0] == '\0') return;
      AddId(id);
    }
  }

  // A thirteenth distinct ID is dropped.
  void AddId(std::array<char, 9> const& id) {
    for (auto& own : c_.libraryIds) {
      if (own[0] == '\0') {
        own = id;
        taken_ = true;
        return;
      }
      if (std::strcmp(own.data(), id.data()) == 0) return;
    }
  }

  template <Index N>
  bool TakeText(std::array<char, N>& own, r::MainWord word, int words) {
    if (own[0] != '\0') return false;
    WordsToText(&main_[static_cast<Index>(word)], words, own.data());
    if (own[0] == '\0') return false;
    taken_ = true;
    return true;
  }

  void Texts() {
    TakeText(c_.name, r::kName, r::kNameWords);
    if (TakeText(c_.formula, r::kFormula, r::kFormulaWords)) {
      c_.keepFormula = main_[r::kKeepFormula] == 1;
      NoteIdentity(sourceFormula);
    }
    constexpr std::int32_t kVaporAndLiquid = 3;
    if (c_.phase == 0) c_.phase = main_[r::kPhase] == 0 ? kVaporAndLiquid : main_[r::kPhase];
    if (TakeText(c_.smiles, r::kSmiles, r::kSmilesWords)) NoteIdentity(sourceSmiles);
  }

  void LegacyStructure() {
    Structure& own = c_.structures[0];
    if (own.count != 0) return;
    for (int i = 0; i < kGroups; ++i) {
      std::int32_t const word = main_[static_cast<Index>(r::kLegacyGroups + i)];
      if (word == 0) continue;
      auto const at = static_cast<Index>(own.count++);
      own.groupIds[at] = word % r::kGroupFactor;
      own.groupCounts[at] = word / r::kGroupFactor;
      NoteIdentity(sourceStructure);
      taken_ = true;
    }
  }

  void OtherStructures() {
    for (int model = 1; model < kModels; ++model) {
      std::int32_t const* words =
          &structures_[static_cast<Index>(r::kStructureEntry * (model - 1))];
      std::int32_t const count = std::clamp(words[0], 0, kGroups);
      Structure& own = c_.structures[static_cast<Index>(model)];
      if (own.count != 0 || count == 0) continue;
      own.count = count;
      std::copy_n(words + 1, kGroups, own.groupIds.begin());
      std::copy_n(words + 1 + kGroups, kGroups, own.groupCounts.begin());
      taken_ = true;
    }
  }

  void Constants() {
    for (Index i = 0; i < kConstantsOnFile; ++i) {
      if (!IsOnFile(i) || !gen_IsUndefDouble(c_.fixed[i])) continue;
      double const stored = RealOf(main_[r::kConstants + i]);
      if (gen_IsUndefDouble(stored)) continue;
      c_.fixed[i] = stored;
      c_.fixedRefs[i] = CodeAt(&main_[r::kConstantCodes], static_cast<int>(i));
      c_.sources.Set(c_.fixedSources[i], source_.text);
      c_.fixedSourceFlags[i] = source_.isProtected ? 1 : 0;
      taken_ = true;
    }
  }

  void Correlations() {
    for (int i = 0; i < kCorrelations; ++i) {
      CorrelationRecord& own = c_.correlations[static_cast<Index>(i)];
      std::int32_t const* words = &correlations_[static_cast<Index>(r::kCorrelationEntry * i)];
      if (!own.present && words[0] != 0) TakeCorrelation(static_cast<Index>(i), own, words);
    }
  }

  void ReadOldLayout() {
    std::array<std::int32_t, r::kOldBlockWords> table{};
    std::int32_t loaded = format::kNullAddress;
    for (int i = 0; i < kCorrelations; ++i) {
      std::int32_t const* entry =
          &main_[static_cast<Index>(r::kDirectory + r::kDirectoryEntry * i)];
      std::int32_t const offset = entry[0];
      std::int32_t const count = entry[1];
      std::int32_t const address = entry[2];
      bool const usable = address > 0 && address != format::kNullAddress && offset >= 0 &&
                          count >= r::kCoefficientsAt && count <= r::kCorrelationEntry &&
                          offset <= r::kOldBlockWords - count;
      if (!usable) continue;
      if (address != loaded) {
        Read(address, r::kOldBlockWords, table.data());
        loaded = address;
      }
      std::int32_t* words = &correlations_[static_cast<Index>(r::kCorrelationEntry * i)];
      std::copy_n(&table[static_cast<Index>(offset)], count, words);
      // The count of coefficients was in the directory.
      auto const unit = static_cast<std::uint32_t>(words[r::kCountAndUnit]) % r::kMillion;
      auto const coefficients = static_cast<std::uint32_t>(count - r::kCoefficientsAt);
      words[r::kCountAndUnit] = static_cast<std::int32_t>(coefficients * r::kMillion + unit);
    }
  }

  void TakeCorrelation(Index i, CorrelationRecord& own, std::int32_t const* words) {
    auto const field = [&](r::CorrelationWord word, std::uint32_t divisor, std::uint32_t modulus) {
      return static_cast<std::int32_t>(static_cast<std::uint32_t>(words[word]) / divisor % modulus);
    };
    own.present = true;
    own.equation = field(r::kEquationAndUnit, r::kMillion, r::kThousand);
    own.tempUnit = field(r::kEquationAndUnit, 1, r::kThousand);
    own.logBasis = field(r::kBases, r::kMillion, r::kThousand);
    own.moleWtBasis = field(r::kBases, r::kThousand, r::kThousand);
    own.coefficientCount = field(r::kCountAndUnit, r::kMillion, r::kThousand);
    own.SetUnit(field(r::kCountAndUnit, 1, r::kMillion));
    own.tMin = RealOf(words[r::kTMin]);
    own.tMax = RealOf(words[r::kTMax]);
    std::transform(words + r::kCoefficientsAt, words + r::kCorrelationEntry,
                   own.coefficients.begin(), RealOf);
    c_.correlationRefs[i] = CodeAt(&main_[r::kCorrelationCodes], static_cast<int>(i));
    c_.sources.Set(c_.correlationSources[i], source_.text);
    c_.correlationSourceFlags[i] = source_.isProtected ? 1 : 0;
    taken_ = true;
  }

  Component& c_;
  LibFile_i& library_;
  RecordSource source_;
  std::array<std::int32_t, r::kMainWords> main_{};
  std::array<std::int32_t, r::kStructureWords> structures_{};
  std::array<std::int32_t, r::kCorrelationWords> correlations_{};
  bool taken_ = false;
};

}  // namespace

ZelStatus MergeRecord(Component& component, std::int32_t address, LibFile_i& library,
                      RecordSource source) {
  return Merge(component, library, source).Run(address);
}

}  // namespace zel
