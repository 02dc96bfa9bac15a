#include "bench/zel_store.h"

#include <algorithm>
#include <bit>
#include <stdexcept>

#include "frame/platform/block_file.h"

namespace zel::bench {

namespace f = format;

namespace {

constexpr char kType[] = "NRTL";
constexpr char kBank[] = "BENCH";
constexpr std::int32_t kFormat = 1;

void Check(bool good, char const* what) {
  if (!good) throw std::runtime_error(what);
}

// Passes the floats of a record to PutData, in the order of the data block.
void Put(IZelNrtl* nrtl, Data const& data) {
  double v[kFloats];
  for (std::size_t i = 0; i < kFloats; ++i) {
    v[i] = static_cast<double>(std::bit_cast<float>(data[kFirstFloat + i]));
  }
  double const none = gen_GetUndefDouble();
  nrtl->PutData(v[4], v[5], v[6], none, none, none, v[7], v[8], v[9], none, none, none, v[10],
                v[11], v[0], v[1], v[2], v[3], data[kReference]);
}

Decoded Get(IZelNrtl* nrtl) {
  Decoded item;
  double* v = item.values.data();
  double none[6];
  nrtl->GetData(v + 4, v + 5, v + 6, none, none + 1, none + 2, v + 7, v + 8, v + 9, none + 3,
                none + 4, none + 5, v + 10, v + 11, v, v + 1, v + 2, v + 3, &item.reference);
  return item;
}

}  // namespace

ZelStore::ZelStore(std::filesystem::path const& folder)
    : path_(folder / "pairs.lb1"), key_(Key::NewKey()), bank_(NewBank(kType)), nrtl_(nullptr) {
  void* face = nullptr;
  Check(bank_->QueryInterface(IID_IZelNrtl, &face) == kStatusOk, "no NRTL interface");
  nrtl_ = static_cast<IZelNrtl*>(face);
}

ZelStore::~ZelStore() {
  Close();
  nrtl_->Release();
  bank_->Release();
  Key::DelKey(key_);
}

void ZelStore::RemoveFiles() const {
  std::filesystem::remove(path_);
  std::filesystem::remove(path_.substr(0, path_.size() - 1) + "2");
}

void ZelStore::Create() {
  library_.emplace(platform::SystemFileSystemWithoutSync(), accUpdate, path_.c_str(), "bench");
  Check(library_->CreateNew(libKind11) == openOk, "library not made");
  maint_.emplace(&*library_);
  Check(maint_->CreateBank(kType, kBank, kFormat), "bank not made");
}

void ZelStore::Open(accModes mode) {
  library_.emplace(platform::SystemFileSystemWithoutSync(), mode, path_.c_str(), "bench");
  Check(library_->OpenExisting({true, {}}, nullptr) == openOk, "library not opened");
}

// The tree works on a copy of the bank's head: the node that holds it may leave its buffer.
void ZelStore::LocateBank() {
  std::int32_t const* entry = nullptr;
  Check(library_->FindBank(kType, kBank, entry, false), "bank not found");
  std::copy_n(entry + f::kBankHead, head_.size(), head_.begin());
  tree_.emplace(library_->Store(), head_.data());
}

void ZelStore::StoreHead() {
  std::int32_t const* found = nullptr;
  Check(library_->FindBank(kType, kBank, found, false), "bank not found");
  std::int32_t* entry = nullptr;
  Check(library_->GetBankTree()->GetCurrentData(entry), "bank not at hand");
  std::copy(head_.begin(), head_.end(), entry + f::kBankHead);
  library_->GetBankTree()->WriteCurrentNode();
}

void ZelStore::OpenForReading() {
  Open(accRead);
  maint_.emplace(&*library_);
  LocateBank();
}

void ZelStore::Close() noexcept {
  tree_.reset();
  maint_.reset();
  library_.reset();
}

void ZelStore::Load(std::span<Item const> items, bool) {
  Create();
  LocateBank();
  for (Item const& item : items) {
    std::int32_t const key[] = {item.key.a, item.key.b};
    std::int32_t const* found = nullptr;
    Check(!tree_->Find(key, found), "key twice");
    tree_->Insert(key, f::kNullAddress, f::kNullAddress);
    std::int32_t* data = nullptr;
    Check(tree_->GetCurrentData(data), "item not at hand");
    std::copy(item.data.begin(), item.data.end(), data);
    tree_->WriteCurrentNode();
  }
  StoreHead();
  Close();
}

void ZelStore::LoadThroughItems(std::span<Item const> items) {
  Create();
  for (Item const& item : items) {
    Put(nrtl_, item.data);
    key_->SetKey(static_cast<long>(item.key.a), static_cast<long>(item.key.b));
    Check(maint_->WriteItem(bank_, kBank, key_), "item not written");
  }
  Close();
}

std::uint64_t ZelStore::GetDecoded(Pair key) {
  key_->SetKey(static_cast<long>(key.a), static_cast<long>(key.b));
  return maint_->ReadItem(bank_, kBank, key_) ? SumOf(bench::Get(nrtl_)) : kAbsent;
}

std::uint64_t ZelStore::Walk() {
  std::int32_t keyWords = 0;
  std::int32_t dataWords = 0;
  tree_->WalkBegin(keyWords, dataWords);
  std::uint64_t sum = 0;
  std::int32_t const* entry = nullptr;
  while (tree_->WalkNext(entry)) sum += SumOf(entry + keyWords);
  return sum;
}

std::uint64_t ZelStore::Hash() {
  std::int32_t keyWords = 0;
  std::int32_t dataWords = 0;
  tree_->WalkBegin(keyWords, dataWords);
  std::uint64_t hash = 0;
  std::int32_t const* entry = nullptr;
  while (tree_->WalkNext(entry)) hash = HashOf(hash, {entry[0], entry[1]}, entry + keyWords);
  return hash;
}

std::vector<Pair> ZelStore::LeafKeys() {
  std::vector<Pair> keys;
  std::vector<std::int32_t> addresses = {head_[f::kHeadRootAddress]};
  std::size_t const width = static_cast<std::size_t>(head_[f::kHeadEntryWords]) + 1;
  std::array<std::int32_t, f::kNodeWords> node;
  for (std::size_t n = 0; n < addresses.size(); ++n) {
    library_->ReadBlock(addresses[n], f::kNodeWords, node.data());
    auto const count = static_cast<std::size_t>(node[f::kNodeCount]);
    bool const isLeaf = node[f::kNodeLinks] == f::kNullAddress;
    for (std::size_t i = 0; i <= count && !isLeaf; ++i) {
      addresses.push_back(node[f::kNodeLinks + i * width]);
    }
    for (std::size_t i = 0; i < count && isLeaf; ++i) {
      std::size_t const entry = f::kNodeEntries + i * width;
      keys.push_back({node[entry], node[entry + 1]});
    }
  }
  return keys;
}

std::size_t ZelStore::Delete(std::span<Pair const> keys) {
  Open(accUpdate);
  LocateBank();
  std::size_t deleted = 0;
  for (Pair const pair : keys) {
    std::int32_t const key[] = {pair.a, pair.b};
    deleted += tree_->Delete(key) ? 1 : 0;
  }
  StoreHead();
  Close();
  return deleted;
}

std::uint64_t ZelStore::OpenReadClose(Pair key) {
  Open(accRead);
  LocateBank();
  std::uint64_t const sum = Get(key);
  Close();
  return sum;
}

}  // namespace zel::bench
