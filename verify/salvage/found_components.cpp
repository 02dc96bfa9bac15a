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
    // Adding new banks may have moved the others.
    return std::move(banks_);
  }

 private:
  // Takes entries in their places whose records have their numbers.
  void TakeSound(ComponentBank& bank) {
    for (FoundEntry const& entry : bank.bank->contents.entries) {
      if (!records_.IsRecordOf(entry.words[1], entry.words[0])) continue;
      Add(bank, {entry.words[0], entry.words[1], entry.isScanned, entry.isOutdated, ""});
    }
  }

  // Takes entries whose record has another number, or is not where they say.
  void TakeOthers(ComponentBank& bank) {
    TreeContents const& contents = bank.bank->contents;
    for (FoundEntry const& entry : contents.entries) {
      std::int32_t const number = entry.words[0];
      if (Has(bank, number)) continue;
      std::optional<std::int32_t> const elsewhere = Unused(number);
      if (elsewhere) {
        Add(bank, Scanned(number, *elsewhere, "its entry leads elsewhere"));
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

  // Either the number in the entry is wrong or that in the record: the one that fits between the
  // other numbers of the bank is right, that of the entry if both fit.
  void TakeByRecord(ComponentBank& bank, FoundEntry const& entry) {
    std::int32_t const ofRecord = NumberOf(entry.words[1]);
    std::int32_t const ofEntry = entry.words[0];
    bool const fits = FitsAt(bank, entry, ofRecord);
    std::vector<FoundEntry> const& entries = bank.bank->contents.entries;
    bool const isInOrder = PlaceOf(entry, entries) != entries.end();
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

  // Returns the end if the entry is not one of them.
  static std::vector<FoundEntry>::const_iterator PlaceOf(FoundEntry const& entry,
                                                         std::vector<FoundEntry> const& entries) {
    auto const at =
        std::partition_point(entries.begin(), entries.end(),
                             [&](FoundEntry const& one) { return one.words[0] < entry.words[0]; });
    return at != entries.end() && at->words == entry.words ? at : entries.end();
  }

  // Whether a number would be in its place between the neighbours of an entry.
  static bool FitsAt(ComponentBank const& bank, FoundEntry const& entry, std::int32_t number) {
    std::vector<FoundEntry> const& entries = bank.bank->contents.entries;
    auto const at = PlaceOf(entry, entries);
    if (at == entries.end()) {
      std::vector<TreeGap> const& holes = bank.bank->contents.holes;
      return std::any_of(holes.begin(), holes.end(),
                         [&](TreeGap const& hole) { return IsBetween(number, hole); });
    }
    return (at == entries.begin() || (at - 1)->words[0] < number) &&
           (at + 1 == entries.end() || number < (at + 1)->words[0]);
  }

  // Takes records that no entry leads to, those in free blocks last. Of several banks with room,
  // the one whose records are nearest gets the record.
  void TakeIntoGaps() {
    std::vector<Room> rooms;
    for (ComponentBank const& bank : banks_) rooms.push_back(RoomIn(bank.bank->contents));
    for (auto const& [number, address] : UnusedRecords()) {
      ComponentBank* best = nullptr;
      std::int64_t least = 0;
      for (ComponentBank& bank : banks_) {
        Room const& room = rooms[static_cast<std::size_t>(&bank - banks_.data())];
        if (Has(bank, number) || !HasRoomFor(room, number)) continue;
        std::int64_t const distance = Distance(bank, address);
        if (best != nullptr && distance >= least) continue;
        best = &bank;
        least = distance;
      }
      if (best != nullptr) Add(*best, Scanned(number, address, "its entry is lost"));
    }
  }

  // The gaps and holes of a tree by the number before them: the greatest number after those that
  // begin there or earlier.
  using Room = std::map<std::int64_t, std::int64_t>;
  static Room RoomIn(TreeContents const& contents) {
    Room room;
    for (std::vector<TreeGap> const* const gaps : {&contents.gaps, &contents.holes}) {
      for (TreeGap const& gap : *gaps) {
        std::int64_t const before = gap.before == nullptr ? INT64_MIN : gap.before[0];
        std::int64_t& after = room.try_emplace(before, INT64_MIN).first->second;
        after = std::max<std::int64_t>(after, gap.after == nullptr ? INT64_MAX : gap.after[0]);
      }
    }
    std::int64_t most = INT64_MIN;
    for (auto& [before, after] : room) after = most = std::max(most, after);
    return room;
  }
  static bool HasRoomFor(Room const& room, std::int32_t number) {
    auto const next = room.lower_bound(number);
    return next != room.begin() && number < std::prev(next)->second;
  }

  std::int64_t Distance(ComponentBank const& bank, std::int32_t address) {
    std::set<std::int32_t> const& blocks = addresses_[&bank - banks_.data()];
    auto const at = blocks.lower_bound(address);
    std::int64_t least = INT32_MAX;
    if (at != blocks.end()) least = std::int64_t{*at} - address;
    if (at != blocks.begin()) least = std::min(least, std::int64_t{address} - *std::prev(at));
    return least;
  }

  // Takes what is left, each number once per bank.
  void TakeIntoNewBanks() {
    std::map<std::int32_t, int> copies;
    std::vector<std::vector<FoundComponent>> banks;
    for (auto const& [number, address] : UnusedRecords()) {
      auto const copy = static_cast<std::size_t>(copies[number]++);
      if (banks.size() <= copy) banks.resize(copy + 1);
      banks[copy].push_back(Scanned(number, address, "its bank is lost"));
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
    std::optional<std::int32_t> outdated;
    for (auto at = from; at != to; ++at) {
      if (used_.count(at->second) != 0) continue;
      if (!records_.IsOutdated(at->second)) return at->second;
      if (!outdated) outdated = at->second;
    }
    return outdated;
  }
  // Numbers and addresses, in this order, of the records in use and then of those in free blocks.
  std::vector<std::pair<std::int32_t, std::int32_t>> UnusedRecords() const {
    std::vector<std::pair<std::int32_t, std::int32_t>> records;
    for (auto const& record : records_.Addresses()) {
      if (used_.count(record.second) == 0) records.emplace_back(record);
    }
    std::stable_partition(records.begin(), records.end(), [this](auto const& record) {
      return !records_.IsOutdated(record.second);
    });
    return records;
  }
  FoundComponent Scanned(std::int32_t number, std::int32_t address, char const* note) const {
    return {number, address, true, records_.IsOutdated(address), note};
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
