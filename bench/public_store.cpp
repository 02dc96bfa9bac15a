#include "bench/public_store.h"

#include <bit>
#include <cstdio>
#include <stdexcept>

#include "frame/platform/block_file.h"
#include "store/lib_file.h"

namespace zel::bench {
namespace {

void Check(bool good, char const* what) {
  if (!good) throw std::runtime_error(what);
}

// A library as NewLibFile and OpenLibFile return it, without syncing.
Handle<LibFile> MakeUnsynced(accModes mode, std::string const& path, bool create) {
  auto library = std::make_unique<LibFile_i>(platform::SystemFileSystemWithoutSync(), mode,
                                             path.c_str(), "bench");
  openErrors const error =
      create ? library->CreateNew(libKind11) : library->OpenExisting({true, {}}, nullptr);
  Check(error == openOk, "library not opened");
  return Handle<LibFile>(library.release());
}

}  // namespace

PublicStore::PublicStore(std::filesystem::path const& folder)
    : path_(folder / "public.lb1"), key_(Key::NewKey()), nrtl_(kType, IID_IZelNrtl) {}

void PublicStore::RemoveFiles() const {
  std::filesystem::remove(path_);
  std::filesystem::remove(path_.substr(0, path_.size() - 1) + "2");
}

void PublicStore::Create() {
  library_ = MakeUnsynced(accUpdate, path_, true);
  maint_.reset(LibMaint::NewLibMaint(library_.get()));
}

void PublicStore::Open(accModes mode) {
  library_ = MakeUnsynced(mode, path_, false);
  maint_.reset(LibMaint::NewLibMaint(library_.get()));
}

void PublicStore::OpenForReading() { Open(accRead); }

void PublicStore::Close() noexcept {
  maint_.reset();
  library_.reset();
}

void PublicStore::Write(char const* bank, Item const& item) {
  double v[kFloats];
  for (std::size_t i = 0; i < kFloats; ++i) {
    v[i] = static_cast<double>(std::bit_cast<float>(item.data[kFirstFloat + i]));
  }
  double const none = gen_GetUndefDouble();
  nrtl_->PutData(v[4], v[5], v[6], none, none, none, v[7], v[8], v[9], none, none, none, v[10],
                 v[11], v[0], v[1], v[2], v[3], item.data[kReference]);
  key_->SetKey(static_cast<long>(item.key.a), static_cast<long>(item.key.b));
  Check(maint_->WriteItem(nrtl_.Def(), bank, key_.get()), "item not written");
}

Decoded PublicStore::Get() {
  Decoded item;
  double* v = item.values.data();
  nrtl_->GetData(v + 4, v + 5, v + 6, nullptr, nullptr, nullptr, v + 7, v + 8, v + 9, nullptr,
                 nullptr, nullptr, v + 10, v + 11, v, v + 1, v + 2, v + 3, &item.reference);
  return item;
}

void PublicStore::Load(std::span<Item const> items) {
  Create();
  Check(maint_->CreateBank(kType, kBank, 1), "bank not made");
  for (Item const& item : items) Write(kBank, item);
  Close();
}

void PublicStore::LoadInto(std::size_t banks, std::span<Item const> items) {
  Create();
  names_.assign(banks, {});
  for (std::size_t i = 0; i < banks; ++i) {
    std::snprintf(names_[i].data(), names_[i].size(), "B%d", static_cast<int>(i % 1'000'000));
    Check(maint_->CreateBank(kType, names_[i].data(), 1), "bank not made");
  }
  for (std::size_t i = 0; i < items.size(); ++i) Write(names_[i % banks].data(), items[i]);
  Close();
}

std::uint64_t PublicStore::Exists(Pair key) {
  key_->SetKey(static_cast<long>(key.a), static_cast<long>(key.b));
  return maint_->ItemExists(nrtl_.Def(), kBank, key_.get()) ? 1 : 0;
}

std::uint64_t PublicStore::GetFrom(char const* bank, Pair key) {
  key_->SetKey(static_cast<long>(key.a), static_cast<long>(key.b));
  return maint_->ReadItem(nrtl_.Def(), bank, key_.get()) ? SumOfFloats(Get()) : kAbsent;
}

template <typename Visit>
void PublicStore::ForEach(Visit const& visit) {
  std::int32_t words[10];
  if (!maint_->BeginItemWalk(kType, kBank)) return;
  while (maint_->NextItem(words, nrtl_.Def())) visit(Pair{words[0], words[1]}, Get());
  maint_->EndItemWalk();
}

std::uint64_t PublicStore::WalkWidened() {
  std::uint64_t sum = 0;
  ForEach([&](Pair, Decoded const& item) { sum += SumOfFloats(item); });
  return sum;
}

std::uint64_t PublicStore::Columns() {
  static constexpr char const* kNames[kFloats] = {"tMin", "tMax", "pMin",    "pMax",
                                                  "aij",  "bij",  "cij",     "aji",
                                                  "bji",  "cji",  "alphaij", "betaij"};
  ColumnArrays columns;
  Handle<ColumnReader> const reader(ColumnReader::NewColumnReader(library_.get(), kType, kBank));
  Check(reader != nullptr, "no reader");
  for (std::size_t i = 0; i < kFloats; ++i) {
    Check(reader->AddReals(kNames[i], columns.values[i].data()), "no such field");
  }
  Check(reader->AddIntegers("refCode", columns.reference.data()), "no reference code");
  std::uint64_t sum = 0;
  while (auto const rows = static_cast<std::size_t>(reader->Read(ColumnArrays::kRows))) {
    sum += columns.Sum(rows);
  }
  return sum;
}

std::uint64_t PublicStore::Hash() {
  std::uint64_t hash = 0;
  ForEach([&](Pair key, Decoded const& item) { hash = HashOf(hash, key, DataOf(item).data()); });
  return hash;
}

std::size_t PublicStore::Delete(std::span<Pair const> keys) {
  Open(accUpdate);
  std::size_t deleted = 0;
  for (Pair const key : keys) {
    key_->SetKey(static_cast<long>(key.a), static_cast<long>(key.b));
    deleted += maint_->DeleteItem(kType, kBank, key_.get()) ? 1 : 0;
  }
  Close();
  return deleted;
}

}  // namespace zel::bench
