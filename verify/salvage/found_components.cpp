#include "verify/salvage/found_components.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "frame/limits.h"
#include "store/block_address.h"

namespace zel {

namespace {

bool IsBetween(std::int32_t number, TreeGap const& gap) noexcept {
  return (gap.before == nullptr || gap.before[0] < number) &&
         (gap.after == nullptr || number < gap.after[0]);
}

class Finder {
 public:
  Finder(FoundBanks& banks, ComponentRecords const& records) : all_(banks), records_(records) {
    for (SalvagedTree& bank : all_.Banks()) {
      if (bank.heading.type == kPureComponentType) banks_.push_back({&bank, {}, {}});
    }
  }

  std::vector<ComponentBank> Run() {
    for (ComponentBank& bank : banks_) TakeSound(bank);
    for (ComponentBank& bank : banks_) TakeOthers(bank);
    TakeIntoGaps();
    if (!all_.DirectoryIsWhole()) TakeIntoNewBanks();
    for (ComponentBank& bank : banks_) {
      std::sort(bank.components.begin(), bank.components.end(),
                [](auto const& a, auto const& b) { return a.number < b.number; });
    }
    // New banks may have moved the others.
    return std::move(banks_);
  }

 private:
  // An entry in its place whose record has its number.
  void TakeSound(ComponentBank& bank) {
    for (FoundEntry const& entry : bank.bank->contents.entries) {
      if (!records_.IsRecordOf(entry.words[1], entry.words[0])) continue;
      Add(bank, {entry.words[0], entry.words[1], entry.isScanned, entry.isOutdated, ""});
    }
  }

  // Entries whose record has another number, or is not where they say.
  void TakeOthers(ComponentBank& bank) {
    TreeContents const& contents = bank.bank->contents;
    for (FoundEntry const& entry : contents.entries) {
      std::int32_t const number = entry.words[0];
      if (Has(bank, number)) continue;
      std::optional<std::int32_t> const elsewhere = Unused(number);
      if (elsewhere) {
        Add(bank, {number, *elsewhere, true, false, "its entry leads elsewhere"});
      } else if (IsUnusedRecord(entry.words[1])) {
        TakeByRecord(bank, entry);
      } else {
        bank.components.push_back(
            {number, 0, entry.isScanned, entry.isOutdated, "its record cannot be read"});
        numbers_[&bank - banks_.data()].insert(number);
      }
    }
    for (FoundEntry const& entry : contents.keyless) {
      if (IsUnusedRecord(entry.words[1])) TakeByRecord(bank, entry);
    }
  }

  // Either the number in the entry is wrong or that in the record: the one that others of the bank
  // leave room for is right, that of the entry if both do.
  void TakeByRecord(ComponentBank& bank, FoundEntry const& entry) {
    std::int32_t const ofRecord = NumberOf(entry.words[1]);
    std::int32_t const ofEntry = entry.words[0];
    bool const fits = FitsAt(bank, entry, ofRecord);
    std::vector<FoundEntry> const& entries = bank.bank->contents.entries;
    bool const isInOrder = std::any_of(entries.begin(), entries.end(), [&](FoundEntry const& one) {
      return one.words == entry.words;
    });
    if (fits && !Has(bank, ofRecord)) {
      Add(bank, {ofRecord, entry.words[1], true, entry.isOutdated,
                 "its entry has the number " + std::to_string(ofEntry)});
    } else if (isInOrder && !Has(bank, ofEntry)) {
      Add(bank, {ofEntry, entry.words[1], entry.isScanned, entry.isOutdated,
                 "its record has the number " + std::to_string(ofRecord)});
    } else {
      bank.keyless.push_back({ofRecord, entry.words[1], true, false,
                              "neither the number of its entry nor that of its record fits"});
    }
  }

  // Whether a number would be in its place between the neighbours of an entry.
  static bool FitsAt(ComponentBank const& bank, FoundEntry const& entry, std::int32_t number) {
    std::vector<FoundEntry> const& entries = bank.bank->contents.entries;
    auto const at = std::find_if(entries.begin(), entries.end(),
                                 [&](FoundEntry const& one) { return one.words == entry.words; });
    if (at == entries.end()) {
      std::vector<TreeGap> const& holes = bank.bank->contents.holes;
      return std::any_of(holes.begin(), holes.end(),
                         [&](TreeGap const& hole) { return IsBetween(number, hole); });
    }
    return (at == entries.begin() || (at - 1)->words[0] < number) &&
           (at + 1 == entries.end() || number < (at + 1)->words[0]);
  }

  // Records that no entry leads to. Of several banks with room, the one whose records are nearest.
  void TakeIntoGaps() {
    for (auto const& [number, address] : records_.Addresses()) {
      if (used_.count(address) != 0) continue;
      ComponentBank* best = nullptr;
      std::int64_t least = 0;
      for (ComponentBank& bank : banks_) {
        if (Has(bank, number) || !HasRoomFor(bank, number)) continue;
        std::int64_t const distance = Distance(bank, address);
        if (best != nullptr && distance >= least) continue;
        best = &bank;
        least = distance;
      }
      if (best != nullptr) Add(*best, {number, address, true, false, "its entry is lost"});
    }
  }

  static bool HasRoomFor(ComponentBank const& bank, std::int32_t number) {
    TreeContents const& contents = bank.bank->contents;
    auto const isIn = [&](TreeGap const& gap) { return IsBetween(number, gap); };
    return std::any_of(contents.gaps.begin(), contents.gaps.end(), isIn) ||
           std::any_of(contents.holes.begin(), contents.holes.end(), isIn);
  }

  std::int64_t Distance(ComponentBank const& bank, std::int32_t address) {
    std::set<std::int32_t> const& blocks = addresses_[&bank - banks_.data()];
    auto const at = blocks.lower_bound(address);
    std::int64_t least = INT32_MAX;
    if (at != blocks.end()) least = std::int64_t{*at} - address;
    if (at != blocks.begin()) least = std::min(least, std::int64_t{address} - *std::prev(at));
    return least;
  }

  // What is left, each number once per bank.
  void TakeIntoNewBanks() {
    std::map<std::int32_t, int> copies;
    std::vector<std::vector<FoundComponent>> banks;
    for (auto const& [number, address] : records_.Addresses()) {
      if (used_.count(address) != 0) continue;
      auto const copy = static_cast<std::size_t>(copies[number]++);
      if (banks.size() <= copy) banks.resize(copy + 1);
      banks[copy].push_back({number, address, true, false, "its bank is lost"});
    }
    std::vector<std::size_t> places;
    for (ComponentBank const& bank : banks_) {
      places.push_back(static_cast<std::size_t>(bank.bank - all_.Banks().data()));
    }
    auto const& shapes = BankShapes();
    auto const pure = std::find_if(shapes.begin(), shapes.end(), [](BankShape const& shape) {
      return shape.type == kPureComponentType;
    });
    for (std::vector<FoundComponent>& components : banks) {
      all_.Banks().push_back({MakeHeading(*pure, "", format::kNullAddress), {}});
      places.push_back(all_.Banks().size() - 1);
      banks_.push_back({nullptr, std::move(components), {}});
    }
    for (std::size_t i = 0; i < banks_.size(); ++i) banks_[i].bank = &all_.Banks()[places[i]];
  }

  void Add(ComponentBank& bank, FoundComponent component) {
    auto const at = &bank - banks_.data();
    numbers_[at].insert(component.number);
    addresses_[at].insert(component.address);
    used_.insert(component.address);
    bank.components.push_back(std::move(component));
  }

  bool Has(ComponentBank const& bank, std::int32_t number) {
    return numbers_[&bank - banks_.data()].count(number) != 0;
  }
  bool IsUnusedRecord(std::int32_t address) const {
    return used_.count(address) == 0 && records_.IsRecord(address);
  }
  std::int32_t NumberOf(std::int32_t address) const { return records_.NumberOf(address); }
  std::optional<std::int32_t> Unused(std::int32_t number) const {
    auto const [from, to] = records_.Addresses().equal_range(number);
    auto const at =
        std::find_if(from, to, [&](auto const& one) { return used_.count(one.second) == 0; });
    return at == to ? std::nullopt : std::optional(at->second);
  }

  FoundBanks& all_;
  ComponentRecords const& records_;
  std::vector<ComponentBank> banks_;
  std::map<std::ptrdiff_t, std::set<std::int32_t>> numbers_;  // by place in `banks_`
  std::map<std::ptrdiff_t, std::set<std::int32_t>> addresses_;
  std::set<std::int32_t> used_;
};

}  // namespace

std::vector<ComponentBank> FindComponents(FoundBanks& banks, ComponentRecords const& records) {
  return Finder(banks, records).Run();
}

}  // namespace zel
