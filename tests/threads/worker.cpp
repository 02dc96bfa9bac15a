#include "worker.h"

#include <cmath>
#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace zel::test {

namespace {

constexpr long kPairs = 300;
constexpr int kBanks = 40;
constexpr char kIndexId[] = "WATER";
constexpr std::int32_t kIndexNumber = 10000326;

void Check(bool holds, char const* what) {
  if (!holds) throw std::runtime_error(what);
}

Handle<LibFile> NewLibrary(std::string const& path) {
  openErrors error{};
  Handle<LibFile> library(LibFile::NewLibFile(libKind11, path.c_str(), error));
  Check(error == openOk, "NewLibFile");
  return library;
}

Handle<LibFile> OpenForReading(std::string const& path) {
  openErrors error{};
  Handle<LibFile> library(LibFile::OpenLibFile(accRead, path.c_str(), "", error));
  Check(error == openOk, "OpenLibFile");
  return library;
}

struct CountingSink final : ZelFindingSink {
  void Found(zelFindings severity, char const*, char const* place, char const* text) override {
    if (severity == findingDamage) damage += std::string(place) + ": " + text + "\n";
  }
  std::string damage;
};

// A document with one component, whose vapor pressure at any temperature is `pressure` in kPa.
std::string Document(std::int32_t number, std::string const& id, double nbp, double pressure) {
  return "<bank type=\"PURECOMP\" name=\"MINE\"><comp><id number=\"" + std::to_string(number) +
         "\" name=\"" + id + "\" formula=\"H2O\"> " + id + " </id><property name=\"NBP\" value=\"" +
         std::to_string(nbp) +
         "\" uom=\"C\" /><correlation name=\"VaporPressure\" equation=\"1\" tempUnit=\"k\" "
         "propUnit=\"bar\" tMin=\"200\" tMax=\"600\"> " +
         std::to_string(pressure / 100.0) + " 0 </correlation></comp></bank>";
}

}  // namespace

Handle<LibFile> MakeNameIndex(std::filesystem::path const& folder) {
  InitZelAccess();
  std::string const document = (folder / "index.xml").string();
  std::ofstream(document) << Document(kIndexNumber, kIndexId, 100.0, 1.0);
  Handle<LibFile> library = NewLibrary((folder / "index.lb1").string());
  Handle<LibMaint> const maint(LibMaint::NewLibMaint(library.get()));
  Check(maint->Import(document.c_str(), false), "import of the name index");
  library->FlushLibFile();
  return library;
}

Worker::Worker(std::filesystem::path folder, int number)
    : folder_(std::move(folder)), number_(number) {
  std::filesystem::create_directories(folder_);
}

void Worker::Run() {
  InitZelAccess();
  MakeLibrary();
  ImportDocument();
  ReadAndRewritePairs();
  Walk();
  WalkForVerification();
  Evaluate();
  SearchTwoLibraries();
  ExportAndImportAgain();
  BuildList();
  AskTheNameIndex();
  maint_.reset();
  library_->CloseLibFile();
  library_.reset();
}

void Worker::MakeLibrary() {
  library_ = NewLibrary(Path("own.lb1"));
  maint_.reset(LibMaint::NewLibMaint(library_.get()));
  Handle<IZelBankDef> const bank(NewBank("VANLAAR"));
  for (int i = 0; i < kBanks; ++i) {
    Check(maint_->CreateBank("VANLAAR", ("B" + std::to_string(i)).c_str(), 0), "CreateBank");
  }
  for (long item = 1; item <= kPairs; ++item) {
    Handle<Key> const key(Key::NewKey());
    key->SetKey(item, item + 1);
    double const aij = Aij(item);
    bank->SetDoubleField("aij", &aij);
    Check(maint_->WriteItem(bank.get(), "B0", key.get()), "WriteItem");
  }
}

void Worker::ImportDocument() {
  std::ofstream(Path("own.xml")) << Document(21000000 + number_, "ID" + std::to_string(number_),
                                             10.0 * number_, 50.0 * number_);
  Check(maint_->Import(Path("own.xml").c_str(), false), "Import");
  // A missing document is an error that names this thread's file.
  std::string const absent = Path("absent.xml");
  Check(!maint_->Import(absent.c_str(), false), "import of nothing");
  Check(std::string(maint_->GetLastErrorText()).find(absent) != std::string::npos, "error text");
}

void Worker::ReadAndRewritePairs() {
  Handle<IZelBankDef> const bank(NewBank("VANLAAR"));
  for (long item = 1; item <= kPairs; ++item) {
    Handle<Key> const key(Key::NewKey());
    key->SetKey(item, item + 1);
    double aij = 0.0;
    Check(maint_->ReadItem(bank.get(), "B0", key.get()), "ReadItem");
    bank->GetDoubleField("aij", &aij);
    Check(aij == Aij(item), "value of an item");
    if (item % 10 == 0) Check(maint_->RewriteItem(bank.get()), "RewriteItem");
    if (item % 50 == 0) Check(maint_->DeleteItem("VANLAAR", "B0", key.get()), "DeleteItem");
  }
}

void Worker::Walk() {
  char type[9];
  char name[9];
  for (int round = 0; round < 20; ++round) {
    int banks = 0;
    maint_->BeginBankWalk("VANLAAR");
    while (maint_->NextBank(type, name)) ++banks;
    Check(banks == kBanks, "walk over banks");
    std::int32_t number = 0;
    maint_->BeginIdWalk();
    Check(maint_->NextId(number, name) && number == 21000000 + number_, "walk over IDs");
    Check(name == "ID" + std::to_string(number_) && !maint_->NextId(number, name), "ID of a walk");
  }
  std::int32_t words[10];
  long items = 0;
  Check(maint_->BeginItemWalk("VANLAAR", "B0"), "BeginItemWalk");
  while (maint_->NextItemKey(words)) ++items;
  Check(items == kPairs - kPairs / 50, "walk over items");
}

void Worker::WalkForVerification() {
  library_->FlushLibFile();
  CountingSink sink;
  Check(VerifyLibrary(library_.get(), sink), sink.damage.c_str());
}

void Worker::Evaluate() {
  BankFace<IZelPureComp> component("PURECOMP", IID_IZelPureComp);
  Handle<Key> const key(Key::NewKey());
  key->SetKey(("ID" + std::to_string(number_)).c_str());
  Check(maint_->ReadItem(component.Def(), "MINE", key.get()), "component by ID");
  double nbp = 0.0;
  component->GetProperty(8, &nbp);
  Check(std::abs(nbp - 10.0 * number_ - 273.15) < 1e-3, "normal boiling point");
  double pressure = 0.0;
  double slope = 0.0;
  std::int32_t where = 0;
  Check(
      component->EvaluateCorrelation(0, 300.0, 1, &pressure, &slope, nullptr, &where) == kStatusOk,
      "EvaluateCorrelation");
  Check(std::abs(pressure - 50.0 * number_) < 1e-3, "vapor pressure");
  double weight = GetFormulaWeight("H2O");
  Check(std::abs(weight - 18.015) < 0.01, "GetFormulaWeight");
}

void Worker::SearchTwoLibraries() {
  library_->FlushLibFile();
  Handle<LibFile> const second = NewLibrary(Path("second.lb1"));
  Handle<LibMaint> const maint(LibMaint::NewLibMaint(second.get()));
  Check(maint->CreateBank("VANLAAR", "B0", 0), "CreateBank");
  Handle<LibSearch> const search(LibSearch::NewLibSearch());
  LibFile* const libraries[] = {second.get(), library_.get()};
  char const names[][9] = {"B0", "B0"};
  search->SetLibraryBanks(2, libraries, names);
  Handle<IZelBankDef> const bank(NewBank("VANLAAR"));
  for (long item = 1; item <= kPairs; item += 7) {
    Handle<Key> const key(Key::NewKey());
    key->SetKey(item, item + 1);
    bool const deleted = item % 50 == 0;
    Check(search->Search(key.get(), bank.get(), false) != deleted, "Search");
    double aij = 0.0;
    bank->GetDoubleField("aij", &aij);
    Check(deleted || aij == Aij(item), "value of a search");
  }
}

void Worker::ExportAndImportAgain() {
  Check(maint_->ExportLibrary(Path("out.xml").c_str()), "ExportLibrary");
  Handle<LibFile> const copy = NewLibrary(Path("copy.lb1"));
  Handle<LibMaint> const maint(LibMaint::NewLibMaint(copy.get()));
  Check(maint->Import(Path("out.xml").c_str(), false), "import of an export");
  std::int32_t words[10];
  long items = 0;
  Handle<IZelBankDef> const bank(NewBank("VANLAAR"));
  Check(maint->BeginItemWalk("VANLAAR", "B0"), "BeginItemWalk of the copy");
  while (maint->NextItem(words, bank.get())) {
    double aij = 0.0;
    bank->GetDoubleField("aij", &aij);
    Check(aij == Aij(words[0]), "value in the copy");
    ++items;
  }
  Check(items == kPairs - kPairs / 50, "items of the copy");
}

void Worker::BuildList() {
  Handle<CompList> const list(CompList::NewCompList());
  Check(list->GetBuilder()->BuildList(library_.get(), "MINE", Path("own.lst").c_str()),
        "BuildList");
  Check(list->ReadList(Path("own.lst").c_str()), "ReadList");
  char name[41], id[13], formula[21], cas[21];
  double nbp = 0.0;
  double mw = 0.0;
  Check(list->GetNext(name, id, formula, cas, nbp, mw), "GetNext");
  Check(id == "ID" + std::to_string(number_), "ID of the list");
}

// Looks up components in the one library that all threads share.
void Worker::AskTheNameIndex() {
  bool fromIndex = false;
  for (int i = 0; i < 50; ++i) {
    Check(maint_->FindNumberById(kIndexId, fromIndex) == kIndexNumber && fromIndex,
          "FindNumberById");
    char id[9];
    maint_->GetIdOfNumber(kIndexNumber, id);
  }
  Check(maint_->NextComponentNumber() >= 21000000, "NextComponentNumber");
  Handle<IZelBankDef> const bank(NewBank("VANLAAR"));
  Handle<Key> const key(Key::NewKey());
  key->SetKey(kIndexId, 5L);
  double const aij = Aij(0);
  bank->SetDoubleField("aij", &aij);
  Check(maint_->WriteItem(bank.get(), "B1", key.get()), "write by an ID of the name index");
  Handle<LibFile> const index = OpenForReading(Path("second.lb1"));
  Check(!index->IsPasswordLocked(), "IsPasswordLocked");
}

}  // namespace zel::test
