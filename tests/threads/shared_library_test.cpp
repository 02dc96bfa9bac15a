// One library open for reading, used by several threads at the same time, each with its own
// objects: what they read, find and evaluate is what one thread gets. Also for ThreadSanitizer.
#include <gtest/gtest.h>
#include <unistd.h>
#include <zelaccess/Columns.h>
#include <zelaccess/Correlation.h>
#include <zelaccess/LibMaint_p.h>
#include <zelaccess/ZelAccess.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "in_threads.h"

namespace zel::test {
namespace {

namespace fs = std::filesystem;

constexpr int kThreads = 8;
constexpr int kRounds = 20;
constexpr int kComponents = 400;  // more than one node has room for
constexpr int kBanks = 60;
constexpr std::int32_t kFirstNumber = 21000000;

void Check(bool holds, std::string const& what) {
  if (!holds) throw std::runtime_error(what);
}

double Aij(long item) { return 0.5 * static_cast<double>(item); }
double Pressure(int component) { return 10.0 + component; }  // kPa
std::string IdOf(int component) { return "ID" + std::to_string(component); }
std::string BankName(int bank) { return "B" + std::to_string(bank); }

// Components with one constant and one correlation each, banks with memos, and pairs in one of
// them.
void MakeLibrary(fs::path const& folder, char const* name) {
  openErrors error{};
  Handle<LibFile> const library(
      LibFile::NewLibFile(libKind11, (folder / name).string().c_str(), error));
  Check(error == openOk, "NewLibFile");
  library->SetMemo("all about it");
  Handle<LibMaint> const maint(LibMaint::NewLibMaint(library.get()));
  std::string const document = (folder / "components.xml").string();
  {
    std::ofstream out(document);
    out << "<bank type=\"PURECOMP\" name=\"MINE\">";
    for (int n = 1; n <= kComponents; ++n) {
      out << "<comp><id number=\"" << kFirstNumber + n << "\" name=\"" << IdOf(n)
          << "\" formula=\"H2O\"> " << IdOf(n) << " </id><property name=\"NBP\" value=\"" << n
          << "\" uom=\"K\" /><correlation name=\"VaporPressure\" equation=\"1\" tempUnit=\"k\" "
             "propUnit=\"kpa\" tMin=\"200\" tMax=\"600\"> "
          << Pressure(n) << " 0 </correlation></comp>";
    }
    out << "</bank>";
  }
  Check(maint->Import(document.c_str(), false), "Import");
  Handle<IZelBankDef> const bank(NewBank("VANLAAR"));
  for (int n = 0; n < kBanks; ++n) {
    Check(maint->CreateBank("VANLAAR", BankName(n).c_str(), 0), "CreateBank");
    maint->SetBankMemo("VANLAAR", BankName(n).c_str(), ("memo " + BankName(n)).c_str());
  }
  for (long item = 1; item <= kComponents; ++item) {
    Handle<Key> const key(Key::NewKey());
    key->SetKey(item, item + 1);
    double const aij = Aij(item);
    bank->SetDoubleField("aij", &aij);
    Check(maint->WriteItem(bank.get(), "B7", key.get()), "WriteItem");
  }
  library->CloseLibFile();
}

class SharedLibraryTest : public ::testing::Test {
 protected:
  SharedLibraryTest()
      : folder_(fs::temp_directory_path() / ("zel_shared_" + std::to_string(::getpid()))) {
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    InitZelAccess();
    MakeLibrary(folder_, "one.lb1");
    MakeLibrary(folder_, "two.lb1");
    one_ = Open("one.lb1");
    two_ = Open("two.lb1");
  }
  ~SharedLibraryTest() override { fs::remove_all(folder_); }

  Handle<LibFile> Open(char const* name) const {
    openErrors error{};
    Handle<LibFile> library(
        LibFile::OpenLibFile(accRead, (folder_ / name).string().c_str(), "", error));
    Check(error == openOk, "OpenLibFile");
    return library;
  }

  void ReadItems(int thread) const;
  void FindComponents(int thread) const;
  void Walk() const;
  void Search(int thread) const;
  void EvaluateOwnComponent(int thread) const;
  void ReadColumns() const;
  void ReadTexts(int thread) const;

  fs::path folder_;
  Handle<LibFile> one_;
  Handle<LibFile> two_;
};

void SharedLibraryTest::ReadItems(int thread) const {
  Handle<LibMaint> const maint(LibMaint::NewLibMaint(one_.get()));
  Handle<IZelBankDef> const bank(NewBank("VANLAAR"));
  Handle<Key> const key(Key::NewKey());
  for (long item = thread; item <= kComponents; item += 3) {
    key->SetKey(item, item + 1);
    double aij = 0.0;
    Check(maint->ReadItem(bank.get(), "B7", key.get()), "ReadItem");
    bank->GetDoubleField("aij", &aij);
    Check(aij == Aij(item), "value of an item");
    key->SetKey(item, item + 2);
    Check(!maint->ItemExists(bank.get(), "B7", key.get()), "ItemExists");
  }
}

void SharedLibraryTest::FindComponents(int thread) const {
  Handle<LibMaint> const maint(LibMaint::NewLibMaint(one_.get()));
  for (int n = thread; n <= kComponents; n += 3) {
    Check(maint->FindNumberById(IdOf(n).c_str()) == kFirstNumber + n, "FindNumberById");
    Check(maint->FindNumberById("NOWHERE") == 0, "an ID that is missing");
  }
}

void SharedLibraryTest::Walk() const {
  Handle<LibMaint> const maint(LibMaint::NewLibMaint(one_.get()));
  char type[9];
  char name[9];
  int banks = 0;
  maint->BeginBankWalk("VANLAAR");
  while (maint->NextBank(type, name)) ++banks;
  Check(banks == kBanks, "walk over banks");
  std::int32_t number = 0;
  int ids = 0;
  maint->BeginIdWalk();
  while (maint->NextId(number, name)) {
    Check(name == IdOf(number - kFirstNumber), "ID of a walk");
    ++ids;
  }
  Check(ids == kComponents, "walk over IDs");
}

void SharedLibraryTest::Search(int thread) const {
  Handle<LibSearch> const search(LibSearch::NewLibSearch());
  LibFile* const libraries[] = {two_.get(), one_.get()};
  char const names[][9] = {"B3", "B7"};
  search->SetLibraryBanks(2, libraries, names);
  Handle<IZelBankDef> const bank(NewBank("VANLAAR"));
  Handle<Key> const key(Key::NewKey());
  for (long item = thread; item <= kComponents; item += 7) {
    key->SetKey(item + 1, item);
    Check(search->Search(key.get(), bank.get(), false), "Search");
    double aji = 0.0;
    bank->GetDoubleField("aji", &aji);
    Check(aji == Aij(item), "value of a search, exchanged");
  }
}

void SharedLibraryTest::EvaluateOwnComponent(int thread) const {
  Handle<LibMaint> const maint(LibMaint::NewLibMaint(two_.get()));
  Handle<Key> const key(Key::NewKey());
  for (int n = thread; n <= kComponents; n += 41) {
    BankFace<IZelPureComp> component("PURECOMP", IID_IZelPureComp);
    key->SetKey(IdOf(n).c_str());
    Check(maint->ReadItem(component.Def(), "MINE", key.get()), "component by ID");
    double pressure = 0.0;
    std::int32_t where = 0;
    component->EvaluateCorrelation(0, 300.0, 0, &pressure, nullptr, nullptr, &where);
    Check(std::abs(pressure - Pressure(n)) < 1e-4, "vapor pressure");
  }
}

void SharedLibraryTest::ReadColumns() const {
  Handle<ColumnReader> const reader(ColumnReader::NewColumnReader(one_.get(), "VANLAAR", "B7"));
  Check(reader.get() != nullptr, "NewColumnReader");
  double values[64] = {};
  Check(reader->AddReals("aij", values), "AddReals");
  double sum = 0.0;
  while (std::int32_t const rows = reader->Read(64)) {
    for (std::int32_t i = 0; i < rows; ++i) sum += values[i];
  }
  Check(sum == 0.5 * kComponents * (kComponents + 1) / 2.0, "sum of a column");
}

void SharedLibraryTest::ReadTexts(int thread) const {
  Handle<LibMaint> const maint(LibMaint::NewLibMaint(one_.get()));
  char memo[4001];
  one_->GetMemo(memo);
  Check(memo == std::string("all about it"), "GetMemo");
  for (int n = thread; n < kBanks; n += 5) {
    maint->GetBankMemo("VANLAAR", BankName(n).c_str(), memo);
    Check(memo == "memo " + BankName(n), "GetBankMemo");
    Check(maint->BankExists("VANLAAR", BankName(n).c_str()), "BankExists");
    Check(!maint->BankExists("VANLAAR", "NOWHERE"), "a bank that is missing");
  }
}

TEST_F(SharedLibraryTest, ThreadsReadSearchAndEvaluateTogether) {
  LibFile::SetOrdwinNameIndex(two_.get());
  EXPECT_EQ(InThreads(kThreads,
                      [&](int n) {
                        for (int round = 0; round < kRounds; ++round) {
                          ReadItems(n);
                          FindComponents(n);
                          Walk();
                          Search(n);
                          EvaluateOwnComponent(n);
                          ReadColumns();
                          ReadTexts(n);
                        }
                      }),
            "");
  LibFile::ClearOrdwinNameIndex();
}

// The first calls after an open are the ones that map the files.
TEST_F(SharedLibraryTest, FirstCallsComeFromAllThreads) {
  for (int round = 0; round < 50; ++round) {
    one_->CloseLibFile();
    ASSERT_EQ(one_->ReopenLibFile(), openOk);
    ASSERT_EQ(InThreads(kThreads, [&](int n) { n % 2 == 0 ? FindComponents(n) : ReadItems(n); }),
              "");
  }
}

TEST_F(SharedLibraryTest, ThreadsEvaluateOneComponent) {
  Handle<LibMaint> const maint(LibMaint::NewLibMaint(one_.get()));
  Handle<Key> const key(Key::NewKey());
  key->SetKey(IdOf(5).c_str());
  BankFace<IZelPureComp> component("PURECOMP", IID_IZelPureComp);
  ASSERT_TRUE(maint->ReadItem(component.Def(), "MINE", key.get()));
  EXPECT_EQ(InThreads(kThreads,
                      [&](int) {
                        for (int i = 0; i < 2000; ++i) {
                          double value = 0.0;
                          double slope = -1.0;
                          double nbp = 0.0;
                          component->EvaluateCorrelation(0, 250.0 + 0.1 * i, 1, &value, &slope,
                                                         nullptr, nullptr);
                          component->GetProperty(8, &nbp);
                          Check(std::abs(value - Pressure(5)) < 1e-4 && slope == 0.0, "value");
                          Check(nbp == 5.0, "constant");
                        }
                      }),
            "");
}

}  // namespace
}  // namespace zel::test
