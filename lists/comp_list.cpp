#include "lists/comp_list.h"

#include <mutex>
#include <string>

#include "frame/ascii.h"
#include "lists/comp_list_build.h"
#include "lists/list_file.h"
#include "lists/list_filter.h"

namespace zel {

namespace {

// The settings that all lists of the process share.
struct Settings {
  std::int32_t sort = sortByName;
  std::int32_t descending = 0;
  std::string filter = "*";
  double minimum = gen_GetUndefDouble();
  double maximum = gen_GetUndefDouble();
};

// Never destroyed, since a host's global list may be destroyed after other global objects.
struct GuardedSettings {
  std::mutex busy;
  Settings settings;
};
GuardedSettings& Guarded() {
  static GuardedSettings& settings = *new GuardedSettings;
  return settings;
}

// Access to the settings; no other thread has access while this object exists.
class Shared {
 public:
  Shared() : lock_(Guarded().busy) {}
  Settings* operator->() const noexcept { return &Guarded().settings; }

 private:
  std::lock_guard<std::mutex> lock_;
};

// An undefined value is compared as the number that represents it.
bool InRange(double value, Settings const& settings) noexcept {
  if (!gen_IsUndefDouble(settings.minimum) && settings.minimum > value) return false;
  return gen_IsUndefDouble(settings.maximum) || !(value > settings.maximum);
}

// Tests the field by which the list is sorted.
bool Passes(ListEntry const& row, Settings const& settings) {
  switch (settings.sort) {
    case sortByName: return MatchesListFilter(row.name, settings.filter);
    case sortById: return MatchesListFilter(row.id, settings.filter);
    case sortByFormula: return MatchesListFilter(row.formula, settings.filter);
    case sortByCas: return MatchesListFilter(static_cast<char const*>(row.cas), settings.filter);
    case sortByNbp: return InRange(row.nbp, settings);
    default: return InRange(row.mw, settings);
  }
}

constexpr std::size_t kNameSize = 41;
constexpr std::size_t kIdSize = 13;
constexpr std::size_t kFormulaSize = 21;
constexpr std::size_t kCasSize = 21;

}  // namespace

CompList::~CompList() = default;

CompList* CompList::NewCompList() { return new CompList_i; }

void CompList::DelCompList(CompList*& list) {
  delete list;
  list = nullptr;
}

CompList_i::CompList_i() { Guarded(); }

CompList_i::~CompList_i() { CompList_i::ClearList(); }

void CompList_i::ClearList() {
  entries_.clear();
  for (Order& order : orders_) order.clear();
  if (builder_) builder_->ClearRecords();
  ResetSort();
  ResetFilter();
}

bool CompList_i::ReadList(char const* path) {
  ClearList();
  return ReadListFile(TextOrEmpty(path), *this);
}

void CompList_i::SetSort(std::int32_t key, std::int32_t descending) {
  {
    Shared const shared;
    shared->sort = key;
    shared->descending = descending;
  }
  Rewind();
}

void CompList_i::GetSort(std::int32_t& key, std::int32_t& descending) const {
  Shared const shared;
  key = shared->sort;
  descending = shared->descending;
}

void CompList_i::SetFilter(char const* pattern) {
  std::string_view const text = TextOrEmpty(pattern);
  std::string filter(text.empty() ? "*" : text);
  Shared()->filter.swap(filter);
  Rewind();
}

// Returns this list's own copy, since another thread may change the filter while it is read.
char const* CompList_i::GetFilter() const {
  Shared const shared;
  if (shownFilter_ != shared->filter) shownFilter_ = shared->filter;
  return shownFilter_.c_str();
}

void CompList_i::SetRange(double minimum, double maximum) {
  {
    Shared const shared;
    shared->minimum = minimum;
    shared->maximum = maximum;
  }
  Rewind();
}

void CompList_i::GetRange(double& minimum, double& maximum) const {
  Shared const shared;
  minimum = shared->minimum;
  maximum = shared->maximum;
}

// Null at the end. Numbers that do not refer to a row, as in a damaged file, are skipped.
ListEntry const* CompList_i::Next() {
  Shared const shared;
  Settings const& settings = *shared.operator->();
  if (settings.sort < 0 || settings.sort >= static_cast<std::int32_t>(kOrders)) return nullptr;
  Order const& order = orders_[static_cast<std::size_t>(settings.sort)];
  while (cursor_ < order.size()) {
    std::size_t const at = settings.descending != 0 ? order.size() - cursor_ - 1 : cursor_;
    ++cursor_;
    auto const row = static_cast<std::size_t>(order[at]);
    if (row < entries_.size() && Passes(entries_[row], settings)) return &entries_[row];
  }
  return nullptr;
}

bool CompList_i::GetNext(char* name, char* id, char* formula, char* cas, double& nbp, double& mw) {
  ListEntry const* row = Next();
  if (row == nullptr) return false;
  GiveText(row->name, name, kNameSize);
  GiveText(row->id, id, kIdSize);
  GiveText(row->formula, formula, kFormulaSize);
  GiveText(static_cast<char const*>(row->cas), cas, kCasSize);
  nbp = row->nbp;
  mw = row->mw;
  return true;
}

bool CompList_i::GetNextShort(char* id, char* name, char* formula) {
  if (NothingWanted(id, name, formula)) return false;
  ListEntry const* row = Next();
  if (row == nullptr) return false;
  GiveText(row->id, id, kIdSize);
  GiveText(row->name, name, kNameSize);
  GiveText(row->formula, formula, kFormulaSize);
  return true;
}

CompListBuild* CompList_i::GetBuilder() {
  if (!builder_) builder_ = std::make_unique<CompListBuild_i>(*this);
  return builder_.get();
}

}  // namespace zel
