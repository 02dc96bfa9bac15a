#include "tests/verify/salvage_fixture.h"

#include <cstdio>
#include <cstring>
#include <stdexcept>

#include "store/bank_key.h"
#include "store/key.h"
#include "tests/support/sample_component.h"
#include "zelaccess/Verify.h"

namespace zel::test {
namespace {

struct Damages final : ZelFindingSink {
  void Found(zelFindings severity, char const*, char const* place, char const* text) override {
    if (severity == findingDamage) texts += std::string(place) + ": " + text + "\n";
  }
  std::string texts;
};

}  // namespace

std::vector<SalvageRecord> SalvageRecords::Notable() const {
  std::vector<SalvageRecord> notable;
  for (SalvageRecord const& one : all) {
    if (one.state != salvageTaken || one.way != salvageByWalk) notable.push_back(one);
  }
  return notable;
}

std::int32_t SalvageFixture::WordAt(int file, std::size_t byte) const {
  std::int32_t word = 0;
  std::memcpy(&word, whole_.file[file - 1].data() + byte, 4);
  return word;
}

void SalvageFixture::PutWord(int file, std::size_t byte, std::int32_t word) {
  std::memcpy(files_.Contents(file == 1 ? kBroken : kBroken2).data() + byte, &word, 4);
}

openErrors SalvageFixture::Salvage(char const* password) {
  records_.all.clear();
  rescued_.clear();
  files_.Remove(kRescued);
  files_.Remove(kRescued2);
  libTypes type{};
  openErrors error = FindTypeOnFiles(files_, kBroken, type);
  if (error != openOk) return error;
  LibFile_i library(files_, accUpdate, kRescued, "rescued");
  if (library.CreateNew(type) != openOk) throw std::logic_error("cannot be made");
  error = SalvageFiles(files_, kBroken, password, &library, &records_, counts_);
  library.CloseLibFile();
  if (error != openOk) return error;
  EXPECT_EQ(library.ReopenLibFile(), openOk);
  Damages damages;
  EXPECT_TRUE(VerifyLibrary(&library, damages)) << damages.texts;
  library.CloseLibFile();
  rescued_ = ReadItems(BytesOf(kRescued, kRescued2));
  return openOk;
}

std::size_t SalvageFixture::EntryOf(char const* type, char const* name) const {
  std::int32_t key[4];
  for (bool const marker : {false, true}) {
    MakeBankKey(type, name, key, marker);
    auto const& bytes = whole_.file[1];
    for (std::size_t at = 0; at + 80 <= bytes.size(); at += 4) {
      if (std::memcmp(bytes.data() + at, key, sizeof key) == 0) return at;
    }
  }
  throw std::logic_error("no such bank");
}

std::size_t SalvageFixture::RootOf(char const* type, char const* name) const {
  return OffsetOf(WordAt(2, EntryOf(type, name) + 4 * (4 + 8 + 7)));
}

std::size_t SalvageFixture::NodeAt(std::size_t node, std::size_t entryWords,
                                   std::size_t link) const {
  return OffsetOf(WordAt(2, node + 4 * (4 + link * (entryWords + 1))));
}

std::vector<ItemName> SalvageFixture::Missing() const {
  std::vector<ItemName> missing;
  for (auto const& [name, item] : items_) {
    auto const at = rescued_.find(name);
    if (at == rescued_.end() || at->second.values != item.values) missing.push_back(name);
  }
  return missing;
}

std::vector<ItemName> SalvageFixture::Added() const {
  std::vector<ItemName> added;
  for (auto const& [name, item] : rescued_) {
    if (items_.count(name) == 0) added.push_back(name);
  }
  return added;
}

void WritePairs(LibMaint_i& maint, char const* type, char const* name, long from, long to,
                long step) {
  if (!maint.BankExists(type, name)) maint.CreateBank(type, name, 0);
  FaceRef<IZelBankDef> const bank(NewBank(type));
  for (long i = from; i < to; i += step) {
    double const values[] = {0.5 + static_cast<double>(i), -1.25 * static_cast<double>(i)};
    bank->SetDoubleField("aij", values);
    bank->SetDoubleField("bij", values + 1);
    Key_i key;
    key.SetKey(1 + i / 50, 101 + i % 50);
    if (!maint.WriteItem(bank.Get(), name, &key)) throw std::logic_error("not written");
  }
}

void WriteComponents(LibMaint_i& maint, char const* name, long from, long to) {
  if (!maint.BankExists("PURECOMP", name)) maint.CreateBank("PURECOMP", name, 0);
  FaceRef<IZelBankDef> const bank(NewBank("PURECOMP"));
  auto const component = FaceRef<IZelPureComp>::Of(bank.Get(), IID_IZelPureComp);
  for (long number = from; number < to; ++number) {
    bank->Clear();
    FillComponent(component.Get());
    char ids[12][9] = {};
    std::snprintf(ids[0], sizeof ids[0], "C%d", static_cast<int>(number));
    component->SetIdentity(static_cast<std::int32_t>(number), 0, 0, ids, ids[0], "", 0);
    component->SetProperty(1, 300.0 + static_cast<double>(number));
    Key_i key;
    key.SetKey(number);
    if (!maint.WriteItem(bank.Get(), name, &key)) throw std::logic_error("not written");
  }
}

}  // namespace zel::test
