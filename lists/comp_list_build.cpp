#include "lists/comp_list_build.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <utility>

#include "banks/catalogue.h"
#include "frame/ascii.h"
#include "frame/limits.h"
#include "lists/list_file.h"
#include "lists/sort_keys.h"
#include "maint/column_reader.h"
#include "maint/component_identity.h"
#include "purecomp/formula.h"

namespace zel {

namespace {

constexpr int kIds = ComponentIdentity::kIds;
constexpr std::size_t kIdSize = ComponentIdentity::kIdSize;
constexpr std::size_t kLongestFormatted = 1000;

// IDs with a zero where the letter O was meant.
constexpr std::string_view kMistakenIds[] = {"H20", "C02", "C0", "OLD-DOP"};
constexpr std::size_t kLeastNumberDigits = 7;

bool IsDropped(std::string_view id) {
  bool const number = id.size() >= kLeastNumberDigits &&
                      id.find_first_not_of("0123456789") == std::string_view::npos;
  return id.empty() || number ||
         std::find(std::begin(kMistakenIds), std::end(kMistakenIds), id) != std::end(kMistakenIds);
}

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

// An undefined number is not in an order.
bool IsListed(double value) { return value > gen_GetUndefDouble(); }

}  // namespace

CompListBuild::~CompListBuild() = default;
CompListBuild_p::~CompListBuild_p() = default;

bool CompListBuild_i::BuildList(LibFile* library, char const* bankName, char const* path) {
  Clock::time_point const start = Clock::now();
  ClearRecords();
  auto const* const inner = dynamic_cast<LibFile_i*>(library);
  ProgressSteps progress(inner != nullptr ? inner->Progress() : nullptr);
  bool const isWhole = !progress.IsCancelled() && WalkBank(library, bankName, progress);
  if (!isWhole) ClearRecords();
  totalSeconds_ = SecondsSince(start);
  SortRecords();
  bool const written = isWhole && WriteList(path);
  progress.End();
  return written;
}

namespace {

// What a list shows of some components.
struct ListedRows {
  static constexpr std::size_t kRows = 256;

  std::array<std::array<char, sizeof(ComponentIdentity::name)>, kRows> name;
  std::array<char[kIds][kIdSize], kRows> ids;
  std::array<std::array<char, sizeof(ComponentIdentity::formula)>, kRows> formula;
  std::array<std::int32_t, kRows> keepFormula;
  std::array<std::int32_t, kRows> cas;
  std::array<double, kRows> nbp;
  std::array<double, kRows> mw;

  void AddTo(ColumnReader_i& reader, bool withValues) {
    reader.AddTexts("name", name[0].data());
    reader.AddTexts("ids", ids[0][0]);
    reader.AddTexts("formula", formula[0].data());
    reader.AddIntegers("keepFormula", keepFormula.data());
    reader.AddIntegers("cas", cas.data());
    if (!withValues) return;
    reader.AddReals("NBP", nbp.data());
    reader.AddReals("MW", mw.data());
  }
};

}  // namespace

namespace {

double CountComponents(LibFile* library, char const* bankName) {
  LibMaint_i maint(library);
  std::int32_t words[format::kMaxKeyWords] = {};
  double count = 0.0;
  if (!maint.BeginItemWalk(kPureComponentType, bankName)) return count;
  while (maint.NextItemKey(words)) ++count;
  return count;
}

}  // namespace

// False if the host cancels. Values of a protected library are replaced by one that counts as
// undefined.
bool CompListBuild_i::WalkBank(LibFile* library, char const* bankName, ProgressSteps& progress) {
  if (progress.IsWatched()) progress.Expect(CountComponents(library, bankName));
  ColumnReader_i reader(library, kPureComponentType);
  if (!reader.Begin(kPureComponentType, bankName)) return true;
  bool const locked = library->IsPasswordLocked();
  auto const rows = std::make_unique<ListedRows>();
  double const hidden = gen_GetUndefDouble() * 3.0;
  rows->nbp.fill(hidden);
  rows->mw.fill(hidden);
  rows->AddTo(reader, !locked);
  while (auto const count = static_cast<std::size_t>(reader.Read(ListedRows::kRows))) {
    if (!progress.Did(static_cast<double>(count))) return false;
    for (std::size_t i = 0; i < count; ++i) {
      char secondFormula[sizeof(ComponentIdentity::formula)] = "";
      std::int32_t idCount = 0;
      std::int32_t formulaResult = 0;
      char* const name = rows->name[i].data();
      char* const formula = rows->formula[i].data();
      auto& ids = rows->ids[i];
      if (!CleanRecord(name, ids, idCount, formula, secondFormula, rows->keepFormula[i] != 0,
                       formulaResult, rows->cas[i])) {
        continue;
      }
      AddRecord(name, ids[0], formula, casn(rows->cas[i]), rows->nbp[i], rows->mw[i]);
      if (idCount > 1) AddIds(idCount - 1, ids + 1);
      if (formulaResult > 1) AddFormula(secondFormula);
    }
  }
  return true;
}

// --- rows ----------------------------------------------------------------------------------------

// Rows of `ids` after those that are kept are left unchanged.
bool CompListBuild_i::CleanRecord(char* name, char (*ids)[9], std::int32_t& idCount, char* formula,
                                  char* secondFormula, std::uint8_t keepFormula,
                                  std::int32_t& formulaResult, std::int32_t& casNumber) {
  constexpr std::size_t kNameSize = 41;
  constexpr std::size_t kFormulaSize = 21;
  idCount = 0;
  formulaResult = 1;
  if (name == nullptr || ids == nullptr || formula == nullptr) return false;
  char unwanted[kFormulaSize];
  TidyName(name);
  for (int i = 0; i < kIds; ++i) {
    if (IsDropped(ids[i])) continue;
    char* kept = ids[idCount++];
    if (kept != ids[i]) CopyText(ids[i], kept, kIdSize);
    for (char* c = kept; *c != '\0'; ++c) *c = ToUpper(*c);
  }
  formulaResult = NormaliseFormula(formula, secondFormula != nullptr ? secondFormula : unwanted,
                                   keepFormula != 0);
  casNumber = static_cast<std::int32_t>(static_cast<long>(casn(casNumber)));
  if (name[0] == '\0') CopyText(ids[0], name, kNameSize);
  return idCount != 0 && ids[0][0] != '\0';
}

void CompListBuild_i::Append() {
  TakeSortedBack();
  record_.order = static_cast<std::int32_t>(records_.size());
  records_.push_back(record_);
}

void CompListBuild_i::AddRecord(char const* name, char const* id, char const* formula, casn cas,
                                double nbp, double mw) {
  record_.name = TextOrEmpty(name);
  record_.id = TextOrEmpty(id);
  record_.formula = TextOrEmpty(formula);
  record_.cas = cas;
  record_.nbp = nbp;
  record_.mw = mw;
  record_.kind = ListEntry::kComponent;
  record_.sortKey = MakeIdKey(record_.id);
  Append();
}

void CompListBuild_i::AddIds(std::int32_t count, char const (*ids)[9]) {
  if (ids == nullptr) return;
  for (std::int32_t i = 0; i < count; ++i) AddId(ids[i]);
}

void CompListBuild_i::AddId(char const* id) {
  std::string const own = record_.id;
  record_.id = TextOrEmpty(id);
  record_.kind = ListEntry::kFurtherId;
  record_.sortKey = MakeIdKey(record_.id);
  Append();
  record_.id = own;
}

// The row comes directly after the one added last.
void CompListBuild_i::AddFormula(char const* formula) {
  if (shortForm_) return;
  std::string const own = record_.formula;
  record_.formula = TextOrEmpty(formula);
  record_.kind = ListEntry::kFurtherFormula;
  record_.sortKey += " *";
  Append();
  record_.formula = own;
}

// --- orders --------------------------------------------------------------------------------------

namespace {

// A row with the start of its sort key as numbers of the same order: few comparisons need more.
struct KeyedRow {
  std::uint64_t start;
  std::uint64_t next;  // that of the following characters
  std::size_t keyAt;   // in the text of all keys
  std::uint32_t keySize;
  std::int32_t row;
};

// Rows with their keys, to be sorted.
class KeyedRows {
 public:
  void Reserve(std::size_t rows) { rows_.reserve(rows); }
  void Add(std::string_view key, std::size_t row) {
    constexpr std::size_t kPart = sizeof(std::uint64_t);
    rows_.push_back({Number(key, 0), Number(key, kPart), keys_.size(),
                     static_cast<std::uint32_t>(key.size()), static_cast<std::int32_t>(row)});
    keys_.append(key);
  }
  // Sorts by key; where keys are equal, the lower row comes first.
  void Sort() {
    std::sort(rows_.begin(), rows_.end(), [this](KeyedRow const& a, KeyedRow const& b) {
      if (a.start != b.start) return a.start < b.start;
      if (a.next != b.next) return a.next < b.next;
      bool const isWhole = (a.next & 0xFFU) == 0;  // no key holds a zero byte
      int const keys = isWhole ? 0 : KeyOf(a).compare(KeyOf(b));
      return keys != 0 ? keys < 0 : a.row < b.row;
    });
  }
  std::vector<KeyedRow> const& Rows() const noexcept { return rows_; }

 private:
  std::string_view KeyOf(KeyedRow const& row) const noexcept {
    return std::string_view(keys_).substr(row.keyAt, row.keySize);
  }
  static std::uint64_t Number(std::string_view key, std::size_t from) noexcept {
    std::uint64_t number = 0;
    for (std::size_t i = from; i < from + sizeof number; ++i) {
      number = number << 8 | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0U);
    }
    return number;
  }

  std::vector<KeyedRow> rows_;
  std::string keys_;
};

}  // namespace

template <typename Takes, typename Key>
void CompListBuild_i::MakeTextOrder(compListSorts sort, Takes const& takes, Key const& key) {
  std::vector<ListEntry> const& rows = list_.Entries();
  KeyedRows keyed;
  keyed.Reserve(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (takes(rows[i])) keyed.Add(key(rows[i]), i);
  }
  keyed.Sort();
  CompList_i::Order& order = list_.OrderBy(sort);
  order.clear();
  order.reserve(keyed.Rows().size());
  for (KeyedRow const& row : keyed.Rows()) order.push_back(row.row);
}

// The rows are in the order of the keys of their IDs already, except for those of formulas, which
// this order leaves out.
void CompListBuild_i::MakeIdOrder() {
  std::vector<ListEntry> const& rows = list_.Entries();
  CompList_i::Order& order = list_.OrderBy(sortById);
  order.clear();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows[i].kind != ListEntry::kFurtherFormula) order.push_back(static_cast<std::int32_t>(i));
  }
}

template <typename Takes, typename Value>
void CompListBuild_i::MakeNumberOrder(compListSorts sort, Takes const& takes, Value const& value) {
  std::vector<ListEntry> const& rows = list_.Entries();
  using Number = decltype(value(rows[0]));
  std::vector<std::pair<Number, std::int32_t>> listed;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows[i].kind != ListEntry::kComponent) continue;
    Number const number = value(rows[i]);
    if (takes(number)) listed.emplace_back(number, static_cast<std::int32_t>(i));
  }
  std::sort(listed.begin(), listed.end());  // equal numbers by row
  CompList_i::Order& order = list_.OrderBy(sort);
  order.clear();
  for (auto const& row : listed) order.push_back(row.second);
}

// Takes back rows that are in the list because they were sorted before; rows with equal keys stay
// in their order.
void CompListBuild_i::TakeSortedBack() {
  if (!sorted_) return;
  records_ = list_.Entries();
  sorted_ = false;
}

void CompListBuild_i::SortRecords() {
  Clock::time_point start = Clock::now();
  TakeSortedBack();
  KeyedRows keyed;
  keyed.Reserve(records_.size());
  for (std::size_t i = 0; i < records_.size(); ++i) keyed.Add(records_[i].sortKey, i);
  keyed.Sort();
  std::vector<ListEntry>& rows = list_.Entries();
  rows.clear();
  rows.reserve(keyed.Rows().size());
  for (KeyedRow const& record : keyed.Rows()) {
    rows.push_back(std::move(records_[static_cast<std::size_t>(record.row)]));
    rows.back().order = static_cast<std::int32_t>(rows.size() - 1);
  }
  records_.clear();
  sorted_ = true;
  sortSeconds_ = SecondsSince(start);

  start = Clock::now();
  auto const component = [](ListEntry const& row) { return row.kind == ListEntry::kComponent; };
  MakeTextOrder(sortByName, component, [](ListEntry const& row) { return MakeNameKey(row.name); });
  MakeIdOrder();
  MakeTextOrder(
      sortByFormula,
      [](ListEntry const& row) {
        return row.kind != ListEntry::kFurtherId && !row.formula.empty();
      },
      [](ListEntry const& row) { return FormulaSortKey(row.formula); });
  MakeNumberOrder(
      sortByCas, [](long cas) { return cas > 0; },
      [](ListEntry const& row) { return static_cast<long>(row.cas); });
  MakeNumberOrder(sortByNbp, IsListed, [](ListEntry const& row) { return row.nbp; });
  MakeNumberOrder(sortByMw, IsListed, [](ListEntry const& row) { return row.mw; });
  orderSeconds_ = SecondsSince(start);
}

// --- output --------------------------------------------------------------------------------------

bool CompListBuild_i::WriteList(char const* path) {
  std::string const target(TextOrEmpty(path));
  return target.empty() || WriteListFile(target, list_, shortForm_);
}

// Returns the number of rows; each order has its own length.
std::int32_t CompListBuild_i::CountOrders() {
  return static_cast<std::int32_t>(list_.Entries().size());
}

void CompListBuild_i::FormatRecord(std::int32_t row, char* text) {
  auto const at = static_cast<std::size_t>(row);
  if (row < 0 || at >= list_.Entries().size()) throw std::out_of_range("invalid vector subscript");
  GiveText(ListLine(list_, at), text, kLongestFormatted);
}

void CompListBuild_i::GetTimes(double& total, double& sort, double& order) const {
  total = totalSeconds_;
  sort = sortSeconds_;
  order = orderSeconds_;
}

}  // namespace zel
