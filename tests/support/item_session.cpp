#include "tests/support/item_session.h"

#include <iterator>
#include <memory>
#include <stdexcept>

#include "maint/face_ref.h"
#include "maint/lib_maint.h"
#include "store/key.h"
#include "zelaccess/BankDef.h"

namespace zel::test {
namespace {

constexpr char kType[] = "PRO";
constexpr char kName[] = "CRASH";
constexpr char kField[] = "refCode";
constexpr std::int32_t kFormat = 1;
constexpr std::int32_t kKeys = 400;  // a tree of several levels, with items that are rewritten

void Check(bool good, char const* what) {
  if (!good) throw std::runtime_error(what);
}

void SetWords(Key_i& key, ItemSession::Keys keys) {
  key.SetKey(static_cast<long>(keys.first), static_cast<long>(keys.second));
}

}  // namespace

class ItemSession::Bank {
 public:
  explicit Bank(LibFile_i& library) : maint_(&library), item_(NewBank(kType)) {}

  void Make() { Check(maint_.CreateBank(kType, kName, kFormat), "bank not made"); }
  void Write(Keys keys, std::int32_t value) {
    SetWords(key_, keys);
    item_->SetIntField(kField, &value);
    Check(maint_.WriteItem(item_.Get(), kName, &key_), "item not written");
  }
  void Delete(Keys keys) {
    SetWords(key_, keys);
    Check(maint_.DeleteItem(kType, kName, &key_), "item not deleted");
  }
  std::map<Keys, std::int32_t> ReadAll() {
    std::map<Keys, std::int32_t> items;
    std::int32_t words[10] = {};
    if (!maint_.BeginItemWalk(kType, kName)) return items;
    while (maint_.NextItem(words, item_.Get())) {
      bool const isNew = items.emplace(Keys(words[0], words[1]), Value()).second;
      Check(isNew, "item met twice");
    }
    maint_.EndItemWalk();
    for (auto const& [keys, value] : items) {
      SetWords(key_, keys);
      Check(maint_.ReadItem(item_.Get(), kName, &key_) && Value() == value, "item not found");
    }
    return items;
  }

 private:
  std::int32_t Value() {
    std::int32_t value = 0;
    item_->GetIntField(kField, &value);
    return value;
  }

  LibMaint_i maint_;
  FaceRef<IZelBankDef> item_;
  Key_i key_;
};

ItemSession::ItemSession(LibFile_i& library, State state, Random& random)
    : library_(library),
      random_(random),
      bank_(std::make_unique<Bank>(library)),
      flushed_(state),
      next_(std::move(state)) {}

ItemSession::~ItemSession() = default;

void ItemSession::MakeBank() { bank_->Make(); }

void ItemSession::Fill(State const& state) {
  for (auto const& [keys, value] : state.items) bank_->Write(keys, value);
  library_.SetMemo(state.memo.c_str());
  next_ = state;
  Flush();
}

void ItemSession::Put(Keys keys) {
  auto const value = static_cast<std::int32_t>(random_() % 9999 + 1);
  touched_.insert(keys);
  next_.items[keys] = value;
  bank_->Write(keys, value);
}

void ItemSession::Delete() {
  auto const chosen =
      std::next(next_.items.begin(), static_cast<std::ptrdiff_t>(random_() % next_.items.size()));
  Keys const keys = chosen->first;
  touched_.insert(keys);
  next_.items.erase(chosen);
  bank_->Delete(keys);
}

void ItemSession::Change(int steps) {
  for (int i = 0; i < steps; ++i) {
    std::uint64_t const kind = random_() % 100;
    if (kind < 12 && !next_.items.empty()) {
      Delete();
    } else if (kind < 15) {
      next_.memo = "memo " + std::to_string(random_() % 1000);
      library_.SetMemo(next_.memo.c_str());
    } else {
      auto const a = static_cast<std::int32_t>(random_() % kKeys + 1);
      Put({a, a + 1 + static_cast<std::int32_t>(random_() % 9)});
    }
  }
}

void ItemSession::Flush() {
  library_.FlushLibFile();
  flushed_ = next_;
  touched_.clear();
}

ItemSession::State ItemSession::Read(LibFile_i& library) {
  char memo[4000];
  library.GetMemo(memo);
  return {Bank(library).ReadAll(), memo};
}

long ItemSession::Lost(State const& found, State const& flushed, std::set<Keys> const& touched) {
  long lost = 0;
  for (auto const& [keys, value] : flushed.items) {
    if (touched.count(keys) != 0) continue;
    auto const there = found.items.find(keys);
    if (there == found.items.end() || there->second != value) ++lost;
  }
  return lost;
}

}  // namespace zel::test
