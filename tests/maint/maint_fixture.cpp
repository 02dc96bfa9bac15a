#include "tests/maint/maint_fixture.h"

#include "store/packed_text.h"

namespace zel::test {

namespace {
constexpr char kPath[] = "/m.lb1";
}

MaintTest::MaintTest() : library_(std::make_unique<LibFile_i>(files_, accUpdate, kPath, "Mine")) {
  EXPECT_EQ(library_->CreateNew(libKind11), openOk);
  maint_ = std::make_unique<LibMaint_i>(library_.get());
}

MaintTest::~MaintTest() { LibFile::ClearOrdwinNameIndex(); }

void MaintTest::Reopen(accModes mode) {
  maint_.reset();
  library_->CloseLibFile();
  library_ = std::make_unique<LibFile_i>(files_, mode, kPath, "Mine");
  ASSERT_EQ(library_->OpenExisting({true, ""}, nullptr), openOk);
  maint_ = std::make_unique<LibMaint_i>(library_.get());
}

void MaintTest::AddTo(BTree_i& tree, std::int32_t const* key, std::int32_t number) {
  std::int32_t const* found = nullptr;
  ASSERT_FALSE(tree.Find(key, found));
  tree.Insert(key, format::kNullAddress, format::kNullAddress);
  std::int32_t* data = nullptr;
  ASSERT_TRUE(tree.GetCurrentData(data));
  *data = number;
  ASSERT_TRUE(tree.WriteCurrentNode());
}

void MaintTest::AddId(char const* id, std::int32_t number) {
  std::int32_t key[10] = {};
  TextToWords(id, key, 2);
  AddTo(*library_->GetCharIdTree(), key, number);
}

void MaintTest::AddCas(std::int32_t cas, std::int32_t number) {
  std::int32_t const key[10] = {cas};
  AddTo(*library_->GetCasTree(), key, number);
}

void MaintTest::SetAij(double aij, double aji) {
  vanLaar_->Clear();
  vanLaar_->SetDoubleField("aij", &aij);
  vanLaar_->SetDoubleField("aji", &aji);
}

double MaintTest::Aij() {
  double aij = 0.0;
  EXPECT_EQ(vanLaar_->GetDoubleField("aij", &aij), kStatusOk);
  return aij;
}

}  // namespace zel::test
