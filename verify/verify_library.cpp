// The integrity check: header, extents, trees, owners of blocks, identifiers, items.
#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "banks/catalogue.h"
#include "frame/limits.h"
#include "maint/block_info.h"
#include "maint/face_ref.h"
#include "maint/lib_maint.h"
#include "purecomp/record_format.h"
#include "store/bank_key.h"
#include "store/packed_text.h"
#include "store/progress_steps.h"
#include "verify/item_fields.h"
#include "verify/open_library.h"
#include "verify/tree_check.h"
#include "verify/unread_items.h"
#include "zelaccess/PureComp.h"

namespace zel {

namespace f = format;
namespace r = record;

namespace {

struct StoredBank {
  char type[kMostName + 1] = {};
  char name[kMostName + 1] = {};
  std::array<std::int32_t, f::kBankDataWords> entry{};
  bool sound = false;

  std::string Place() const { return std::string(type) + ":" + name; }
};

class Verification {
 public:
  Verification(LibFile_i& library, ZelFindingSink& sink)
      : library_(library),
        store_(library.Store()),
        findings_(sink),
        claims_(store_, findings_),
        trees_(store_, claims_, findings_),
        progress_(library.Progress()) {}

  // False when there is damage, or the host cancels.
  bool Run() {
    try {
      Go();
    } catch (WorkCancelled) {
      findings_.Note("cancelled", "the library", "the check was cancelled");
      return false;
    }
    progress_.End();
    return findings_.Damages() == 0;
  }

 private:
  void Go() {
    progress_.Expect(1.0);
    Header();
    Extents();
    OwnTrees();
    for (StoredBank& bank : banks_) Bank(bank);
    claims_.Close();
    for (StoredBank const& bank : banks_) {
      if (bank.sound) {
        Items(bank);
      } else if (std::string_view(bank.type) == kPureComponentType) {
        allComponentsMet_ = false;
      }
    }
    if (allComponentsMet_) Identifiers();
  }
  // The trees take about this part of the time, the items the rest.
  static constexpr double kTreesPart = 0.3;
  void Did(double share) {
    if (!progress_.DidItem(share)) throw WorkCancelled();
  }
  // The progress through the trees is that through the blocks.
  void DidBlocks() {
    double const before = std::exchange(claimed_, static_cast<double>(claims_.Claimed()));
    auto const all = static_cast<double>(std::max<std::int64_t>(store_.BlockBound(), 1));
    Did(kTreesPart * (claimed_ - before) / all);
  }
  bool ReadPlain(std::int32_t block, std::int32_t* words);
  void Header();
  void Extents();
  void OwnTrees();
  void Bank(StoredBank& bank);
  void ComponentBlocks(std::int32_t address);
  void Items(StoredBank const& bank);
  void Item(StoredBank const& bank, std::int32_t const* key, IZelBankDef* item);
  void Component(StoredBank const& bank, std::int32_t key, IZelPureComp& component);
  void Identifiers();
  void Memo(std::int32_t address, std::int32_t words);

  LibFile_i& library_;
  BlockStore& store_;
  Findings findings_;
  BlockClaims claims_;
  TreeCheck trees_;
  ProgressSteps progress_;
  double claimed_ = 0.0;      // blocks
  std::int64_t entries_ = 0;  // of the trees of banks
  std::vector<StoredBank> banks_;
  std::set<std::int32_t> components_;
  std::set<std::pair<std::int32_t, std::int32_t>> casOfComponents_;  // number, CAS number
  std::vector<std::pair<std::int32_t, std::int32_t>> casEntries_;    // CAS number, number
  bool allComponentsMet_ = true;
};

void Verification::Memo(std::int32_t address, std::int32_t words) {
  if (address == f::kNullAddress || address == 0) return;
  if (words < 0 || words > f::kMemoWordsDefault) {
    findings_.Damage("memo", claims_.Owner(), "a memo of " + std::to_string(words) + " words");
    return;
  }
  claims_.Claim(address, words);
}

// Reads the header or the block table; false, with a finding, if it cannot be read.
bool Verification::ReadPlain(std::int32_t block, std::int32_t* words) {
  if (store_.ReadPlain(block, f::kHeaderWords, words) >= 0) return true;
  findings_.Damage("block-unreadable", "the header",
                   "block " + std::to_string(block) + " of file 1 cannot be read");
  return false;
}

void Verification::Header() {
  std::array<std::int32_t, f::kHeaderWords> header{};
  if (!ReadPlain(f::kHeaderBlock, header.data())) return;
  auto const block = [&](std::int32_t number) {
    return BlockAddress{store_.LibType(), 1, number}.Word();
  };
  claims_.SetOwner("the header");
  claims_.Claim(block(f::kHeaderBlock), f::kHeaderWords);
  claims_.Claim(block(f::kBlockTableBlock), f::kHeaderWords);
  claims_.Claim(header[f::kTreeHeadsAddress], f::kTreeHeadsWords);
  std::int32_t const level = header[f::kPasswordLevel];
  if (level < 0 || level > 2) {
    findings_.Damage("header", claims_.Owner(), "password level " + std::to_string(level));
  }
  claims_.SetOwner("the library's memo");
  Memo(header[f::kMemoAddress], header[f::kMemoWords]);
}

// Opening a library drops impossible extents; here they are reported.
void Verification::Extents() {
  std::array<std::int32_t, f::kHeaderWords> table{};
  if (!ReadPlain(f::kBlockTableBlock, table.data())) return;
  std::int32_t const declared = table[f::kExtentCount];
  if (declared != store_.Extents().Count()) {
    findings_.Damage("extent", "the block table",
                     std::to_string(declared) + " free runs, of which " +
                         std::to_string(store_.Extents().Count()) + " can be true");
  }
  std::array<int, f::kFileSlots> tails{};
  for (int i = 0; i < store_.Extents().Count(); ++i) {
    Extent const& extent = store_.Extents()[i];
    if (extent.size == f::kOpenTail) ++tails[static_cast<std::size_t>(extent.file)];
    claims_.Free(extent);
  }
  for (int file = 1; file <= std::min(store_.FileCount(), f::kFilesOfNewLibrary); ++file) {
    if (tails[static_cast<std::size_t>(file)] != 1) {
      findings_.Damage("extent", "file " + std::to_string(file),
                       "the free room at its end is lost: nothing new can be stored in it");
    }
  }
}

void Verification::OwnTrees() {
  std::array<LibFile_i::TreeHead, 3> heads{library_.HeadOf(0), library_.HeadOf(1),
                                           library_.HeadOf(2)};
  claims_.SetOwner("the bank directory");
  trees_.Run(heads[0].data(), {f::kBankKeyWords, f::kBankDataWords},
             [&](std::int32_t const* entry) {
               StoredBank bank;
               UnpackBankKey(entry, bank.type, bank.name);
               std::copy_n(entry + f::kBankKeyWords, bank.entry.size(), bank.entry.begin());
               banks_.push_back(bank);
             });
  auto const nothing = [](std::int32_t const*) {};  // IDs are checked with the components
  claims_.SetOwner("the tree of component IDs");
  trees_.Run(heads[1].data(), {f::kIdKeyWords, 1}, nothing);
  claims_.SetOwner("the tree of CAS numbers");
  trees_.Run(heads[2].data(), {f::kCasKeyWords, 1},
             [&](std::int32_t const* entry) { casEntries_.emplace_back(entry[0], entry[1]); });
}

void Verification::Bank(StoredBank& bank) {
  claims_.SetOwner(bank.Place());
  FaceRef<IZelBankDef> const item(NewKnownBank(bank.type));
  auto const io = FaceRef<IZelBankIO>::Of(item.Get(), IID_IZelBankIO);
  if (!io) findings_.Warning("bank", bank.Place(), "a bank of a type that this library has not");
  if (bank.entry[f::kBankOldMark] != 1) {
    Memo(bank.entry[f::kBankMemoAddress], bank.entry[f::kBankMemoWords]);
  }
  bool const isComponents = std::string_view(bank.type) == kPureComponentType;
  int const before = findings_.Damages();
  TreeRule rule;
  if (io) rule.keyWords = BlockInfo(io.Get()).keyWords;
  std::vector<std::pair<std::int32_t, std::int32_t>> components;  // number, address
  bank.sound = trees_.Run(bank.entry.data() + f::kBankHead, rule, [&](std::int32_t const* entry) {
    ++entries_;
    DidBlocks();
    if (isComponents) components.emplace_back(entry[0], entry[1]);
  }) && io;
  if (io && bank.sound) {
    std::array<std::int32_t, f::kHeadWords> words{};
    std::copy_n(bank.entry.data() + f::kBankHead, words.size(), words.begin());
    BTreeHead_i const head(words.data());
    if (FormatOf(io.Get(), BlockInfo(io.Get()), head).format == 0) {
      findings_.Damage("bank", bank.Place(),
                       "records of " + std::to_string(head.dataWords) +
                           " words, a length that the type does not have");
      bank.sound = false;
    }
  }
  for (auto const& [number, address] : components) {
    claims_.SetItem(std::to_string(number));
    ComponentBlocks(address);
    DidBlocks();
  }
  bank.sound = bank.sound && findings_.Damages() == before;
}

void Verification::ComponentBlocks(std::int32_t address) {
  if (!claims_.Claim(address, r::kMainWords)) return;
  std::array<std::int32_t, r::kMainWords> main{};
  if (!claims_.Read(address, r::kMainWords, main.data())) return;
  auto const isThere = [](std::int32_t a) { return a != 0 && a != f::kNullAddress; };
  std::int32_t const structure = main[r::kStructureAddress];
  if (isThere(structure) && main[r::kStructureLength] > 0) {
    claims_.Claim(structure, std::min(main[r::kStructureLength], r::kStructureWords));
  }
  std::int32_t const correlations = main[r::kCorrelationAddress];
  if (correlations != 0 && main[r::kCorrelationLength] > 0) {
    if (isThere(correlations)) {
      claims_.Claim(correlations, std::min(main[r::kCorrelationLength], r::kCorrelationWords));
    }
    return;
  }
  // In the older layout, the entries of several components are in one block.
  std::set<std::int32_t> shared;
  constexpr int kEntries = 20;
  for (int i = 0; i < kEntries; ++i) {
    std::int32_t const block =
        main[static_cast<std::size_t>(r::kDirectory + r::kDirectoryEntry * i + 2)];
    if (block > 0 && isThere(block) && shared.insert(block).second) {
      claims_.ClaimShared(block, r::kOldBlockWords);
    }
  }
}

void Verification::Items(StoredBank const& bank) {
  FaceRef<IZelBankDef> const item(NewKnownBank(bank.type));
  LibMaint_i maint(&library_);
  std::array<std::int32_t, f::kMaxKeyWords> key{};
  UnreadItems const unread(library_, [&](char const* id, char const* place, char const* text) {
    findings_.Damage(id, place, text);
    allComponentsMet_ = false;
  });
  try {
    if (!maint.BeginItemWalk(bank.type, bank.name)) return;
    while (maint.NextItem(key.data(), item.Get())) {
      Did((1.0 - kTreesPart) / static_cast<double>(std::max<std::int64_t>(entries_, 1)));
      Item(bank, key.data(), item.Get());
    }
  } catch (unsigned long const address) {
    findings_.Damage("item", bank.Place(),
                     "block " + std::to_string(address) + ", behind item " +
                         std::to_string(key[0]) + ", cannot be read");
    allComponentsMet_ = false;
  }
}

// A NaN or an infinity is damage: no program writes one.
void Verification::Item(StoredBank const& bank, std::int32_t const* key, IZelBankDef* item) {
  if (auto const component = FaceRef<IZelPureComp>::Of(item, IID_IZelPureComp)) {
    Component(bank, key[0], *component.Get());
    return;
  }
  for (ItemField const& field : FieldsOf(*item)) {
    if (field.type != fieldReal || field.count < 1) continue;
    std::vector<double> const values = RealsOf(*item, field);
    if (!std::all_of(values.begin(), values.end(), [](double v) { return std::isfinite(v); })) {
      findings_.Damage(
          "item", bank.Place(),
          "item " + std::to_string(key[0]) + ": field " + field.name + " is not a number");
    }
  }
}

void Verification::Component(StoredBank const& bank, std::int32_t key, IZelPureComp& component) {
  std::int32_t number = 0, cas = 0, code = 0;
  char ids[12][kMostName + 1] = {};
  char name[41] = {};
  char formula[21] = {};
  std::uint8_t keep = 0;
  component.GetIdentity(&number, &cas, &code, ids, name, formula, &keep);
  components_.insert(key);
  std::string const place = bank.Place() + " " + std::to_string(key);
  if (number != key) {
    findings_.Damage("item", place, "the record says component " + std::to_string(number));
  }
  std::array<double, 100> constants{};
  component.GetAllProperties(constants.data());
  if (!std::all_of(constants.begin(), constants.end(), [](double v) { return std::isfinite(v); })) {
    findings_.Damage("item", place, "a constant is not a number");
  }
  for (char const* id : ids) {
    std::int32_t const* data = nullptr;
    if (id[0] == '\0') continue;
    if (!library_.FindIdNumbers(id, data)) {
      findings_.Warning("identifier-missing", place,
                        std::string("its ID ") + id + " is not in the tree of component IDs");
    } else if (data[0] != key) {
      findings_.Damage("identifier-wrong", place,
                       std::string("its ID ") + id + " stands for component " +
                           std::to_string(data[0]) + " in the tree of component IDs");
    }
  }
  casn const registry(cas);
  casOfComponents_.emplace(key, static_cast<std::int32_t>(static_cast<long>(registry)));
  std::int32_t const* data = nullptr;
  if (static_cast<long>(registry) != 0 && !library_.FindCasNumbers(registry, data)) {
    findings_.Warning("identifier-missing", place,
                      std::string("its CAS number ") + static_cast<char const*>(registry) +
                          " is not in the tree");
  }
}

void Verification::Identifiers() {
  LibMaint_i maint(&library_);
  std::int32_t number = 0;
  char id[kMostName + 1] = {};
  try {
    maint.BeginIdWalk();
    while (maint.NextId(number, id)) {
      if (components_.count(number) != 0) continue;
      findings_.Warning("identifier-stale", "the tree of component IDs",
                        std::string(id) + " stands for component " + std::to_string(number) +
                            ", of which the library has no constants");
    }
  } catch (unsigned long const address) {
    // A damaged tree has been reported already.
    if (findings_.Damages() == 0) {
      findings_.Damage("block-unreadable", "the tree of component IDs",
                       "block " + std::to_string(address) + " cannot be read");
    }
  }
  // Several components can have the same CAS number, of which the tree has only one; it remains in
  // the tree when its component gets another CAS number.
  for (auto const& [cas, component] : casEntries_) {
    std::string const text = static_cast<char const*>(casn(cas));
    if (components_.count(component) == 0) {
      findings_.Warning("identifier-stale", "the tree of CAS numbers",
                        text + " stands for component " + std::to_string(component) +
                            ", of which the library has no constants");
    } else if (casOfComponents_.count({component, cas}) == 0) {
      findings_.Warning(
          "identifier-stale", "the tree of CAS numbers",
          text + " stands for component " + std::to_string(component) + ", which has another one");
    }
  }
}

}  // namespace

bool GetFileRoom(LibFile* library, std::int32_t file, ZelFileRoom& room) {
  LibFile_i* const inner = OpenLibrary(library);
  if (inner == nullptr || file < 1 || file >= f::kFileSlots) return false;
  BlockStore& store = inner->Store();
  // Files other than the first are opened when they are first used.
  if (store.FileState(file) == BlockStore::kPresent) store.OpenFile(file, false, false);
  if (store.FileState(file) != BlockStore::kOpen) return false;
  room = {};
  room.blockBytes = store.BlockWords(file) * f::kWordBytes;
  room.blocks = store.BlocksInFile(file);
  ExtentList const& free = store.Extents();
  for (int i = 0; i < free.Count(); ++i) {
    if (free[i].file != file || free[i].size == f::kOpenTail) continue;
    ++room.freeRuns;
    room.freeBlocks += free[i].size;
  }
  return true;
}

bool VerifyLibrary(LibFile* library, ZelFindingSink& sink) {
  LibFile_i* const inner = OpenLibrary(library);
  if (inner == nullptr) {
    sink.Found(findingDamage, "header", "the library", "it is not open");
    return false;
  }
  return Verification(*inner, sink).Run();
}

}  // namespace zel
