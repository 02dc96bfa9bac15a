// Columns hold what NextItem and the fields of a bank object yield, item by item.
#include <array>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "tests/maint/maint_fixture.h"
#include "zelaccess/Columns.h"
#include "zelaccess/Module.h"
#include "zelaccess/PureComp.h"
#include "zelaccess/Verify.h"

namespace zel {
namespace {

struct ReaderCloser {
  void operator()(ColumnReader* reader) const { ColumnReader::DelColumnReader(reader); }
};
using Reader = std::unique_ptr<ColumnReader, ReaderCloser>;

struct FieldInfo {
  std::string name;
  std::int32_t type;
  std::size_t count;
};

std::vector<FieldInfo> FieldsOf(IZelBankDef* bank) {
  std::int32_t count = 0;
  bank->GetFieldCount(0, &count);
  char names[20][13], labels[20][20], units[20][20];
  std::int32_t types[20], counts[20];
  bank->GetFieldList(0, names, labels, types, counts, units);
  std::vector<FieldInfo> fields;
  for (std::int32_t i = 0; i < count; ++i) {
    fields.push_back({names[i], types[i], static_cast<std::size_t>(counts[i])});
  }
  return fields;
}

// The columns of a bank of named fields, each element as text.
using Rows = std::vector<std::vector<std::string>>;

std::string TextOf(double value) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  return std::to_string(bits);
}

void AppendElements(std::vector<std::string>& row, FieldInfo const& field, double const* reals,
                    std::int32_t const* integers, char const* text) {
  if (field.type == kText) return row.push_back(text);
  for (std::size_t i = 0; i < field.count; ++i) {
    row.push_back(field.type == kReal ? TextOf(reals[i]) : std::to_string(integers[i]));
  }
}

class ColumnsTest : public test::MaintTest {
 protected:
  Reader Open(char const* type, char const* name) {
    return Reader(ColumnReader::NewColumnReader(library_.get(), type, name));
  }

  // A value for every field, some undefined.
  void Fill(IZelBankDef* bank) {
    for (FieldInfo const& field : FieldsOf(bank)) {
      std::array<double, 32> reals{};
      std::array<std::int32_t, 32> integers{};
      for (double& value : reals) {
        value =
            random_() % 5 == 0 ? gen_GetUndefDouble() : double(random_() % 100000) / 1000.0 - 20;
      }
      for (auto& value : integers) {
        value = random_() % 5 == 0 ? gen_GetUndefInt() : std::int32_t(random_() % 1400);
      }
      std::string const text(random_() % field.count, "ABCDEFGH"[random_() % 8]);
      if (field.type == kReal) bank->SetDoubleField(field.name.c_str(), reals.data());
      if (field.type == kText) bank->SetStringField(field.name.c_str(), text.c_str());
      if (field.type != kReal && field.type != kText) {
        bank->SetIntField(field.name.c_str(), integers.data());
      }
    }
  }

  static Rows ByItem(LibMaint_i& maint, IZelBankDef* bank, char const* type, std::size_t keyWords) {
    Rows rows;
    std::vector<FieldInfo> const fields = FieldsOf(bank);
    std::int32_t key[10];
    maint.BeginItemWalk(type, "C");
    while (maint.NextItem(key, bank)) {
      std::vector<std::string>& row = rows.emplace_back();
      for (std::size_t i = 0; i < keyWords; ++i) row.push_back(std::to_string(key[i]));
      for (FieldInfo const& field : fields) {
        double reals[32];
        std::int32_t integers[32];
        char text[128];
        if (field.type == kReal) bank->GetDoubleField(field.name.c_str(), reals);
        if (field.type == kText) bank->GetStringField(field.name.c_str(), text);
        bank->GetIntField(field.name.c_str(), integers);
        AppendElements(row, field, reals, integers, text);
      }
    }
    return rows;
  }

  Rows ByColumns(IZelBankDef* bank, char const* type, std::int32_t batch) {
    Reader const reader = Open(type, "C");
    if (!reader) return {};
    std::vector<FieldInfo> const fields = FieldsOf(bank);
    auto const rowsAtOnce = static_cast<std::size_t>(batch);
    auto const keyWords = static_cast<std::size_t>(reader->GetKeyWords());
    std::vector<std::int32_t> keys(rowsAtOnce * keyWords);
    std::vector<std::vector<double>> reals(fields.size());
    std::vector<std::vector<std::int32_t>> integers(fields.size());
    std::vector<std::vector<char>> texts(fields.size());
    EXPECT_TRUE(reader->AddKeys(keys.data()));
    for (std::size_t i = 0; i < fields.size(); ++i) {
      std::size_t const size = rowsAtOnce * fields[i].count;
      char const* name = fields[i].name.c_str();
      reals[i].resize(size);
      integers[i].resize(size);
      texts[i].resize(size);
      EXPECT_EQ(reader->AddReals(name, reals[i].data()), fields[i].type == kReal) << name;
      EXPECT_EQ(reader->AddTexts(name, texts[i].data()), fields[i].type == kText) << name;
      EXPECT_EQ(reader->AddIntegers(name, integers[i].data()),
                fields[i].type != kReal && fields[i].type != kText)
          << name;
    }
    Rows rows;
    while (std::int32_t const count = reader->Read(batch)) {
      for (std::size_t r = 0; r < static_cast<std::size_t>(count); ++r) {
        std::vector<std::string>& row = rows.emplace_back();
        for (std::size_t i = 0; i < keyWords; ++i) {
          row.push_back(std::to_string(keys[r * keyWords + i]));
        }
        for (std::size_t i = 0; i < fields.size(); ++i) {
          std::size_t const at = r * fields[i].count;
          AppendElements(row, fields[i], reals[i].data() + at, integers[i].data() + at,
                         texts[i].data() + at);
        }
      }
    }
    EXPECT_EQ(reader->Read(batch), 0) << "after the end";
    return rows;
  }

  std::mt19937 random_{7};
};

TEST_F(ColumnsTest, AllTypesAndFormatsAreAsItemByItem) {
  std::vector<std::array<char, 9>> types(static_cast<std::size_t>(GetBankTypeCount()));
  GetBankTypeList(GetBankTypeCount(), reinterpret_cast<char(*)[9]>(types.data()));
  int compared = 0;
  for (auto const& type : types) {
    FaceRef<IZelBankDef> const bank(NewBank(type.data()));
    BankInfo const info(bank.Get());
    if (FieldsOf(bank.Get()).empty()) continue;  // components have a test of their own
    for (std::int32_t format = 0; format <= info.formatCount; ++format) {
      SCOPED_TRACE(std::string(type.data()) + " " + std::to_string(format));
      SetDeleteTestFlag(format != 1);  // few entries make a deep tree
      ASSERT_TRUE(Maint().CreateBank(type.data(), "C", format));
      SetDeleteTestFlag(false);
      for (int i = 0; i < 30; ++i) {
        Key_i key;
        std::int32_t const words[] = {std::int32_t(random_() % 40), std::int32_t(random_() % 40), 3,
                                      4};
        key.SetKeyWords(info.keyWords, words);  // half of the pairs in reverse order
        Fill(bank.Get());
        ASSERT_TRUE(Maint().WriteItem(bank.Get(), "C", &key));
      }
      Library().FlushLibFile();
      for (accModes const mode : {accUpdate, accRead}) {
        if (mode == accRead) Reopen(accRead);
        Rows const expected =
            ByItem(Maint(), bank.Get(), type.data(), static_cast<std::size_t>(info.keyWords));
        ASSERT_GT(expected.size(), 15U);
        for (std::int32_t const batch : {1, 7, 1000}) {
          EXPECT_TRUE(ByColumns(bank.Get(), type.data(), batch) == expected)
              << mode << " " << batch;
        }
      }
      Reopen(accUpdate);
      ASSERT_TRUE(Maint().DeleteBank(type.data(), "C"));
      ++compared;
    }
  }
  EXPECT_GE(compared, 49 * 2);
}

// --- pure components -----------------------------------------------------------------------------

class ComponentColumnsTest : public ColumnsTest {
 protected:
  ComponentColumnsTest() {
    Maint().CreateBank("PURECOMP", "P", 0);
    for (long number = 1; number <= 25; ++number) Write(number);
    Library().FlushLibFile();
  }

  void Write(long number) {
    component_->Clear();
    char ids[12][9] = {};
    for (long i = 0; i < number % 13; ++i) {
      std::snprintf(ids[i], sizeof ids[i], "ID%ld_%ld", number, i == 5 ? 2 : i);  // one ID twice
    }
    if (number % 13 == 0) std::snprintf(ids[0], sizeof ids[0], "ONLY%ld", number);
    char const* const formula = number % 4 == 0 ? "" : "C2H6O";
    Face()->SetIdentity(static_cast<std::int32_t>(number), 64175, 17, ids,
                        ("Name " + std::to_string(number)).c_str(), formula, number % 3 == 0);
    if (number % 2 == 0) Face()->SetSmiles("CCO");
    for (std::uint32_t i = 0; i < 50; ++i) {
      if (random_() % 3 != 0) Face()->SetProperty(i, double(random_() % 100000) / 7.0);
    }
    key_.SetKey(number);
    ASSERT_TRUE(Maint().WriteItem(component_.Get(), "P", &key_)) << number;
  }
  FaceRef<IZelPureComp> Face() {
    return FaceRef<IZelPureComp>::Of(component_.Get(), IID_IZelPureComp);
  }

  // The word in the entry of a component, its block address.
  std::int32_t* AddressOf(BTree_i& tree, std::int32_t number) {
    std::int32_t const* found = nullptr;
    EXPECT_TRUE(tree.Find(&number, found));
    std::int32_t* data = nullptr;
    EXPECT_TRUE(tree.GetCurrentData(data));
    return data;
  }
  void Damage(std::int32_t number) {
    std::int32_t const* entry = nullptr;
    ASSERT_TRUE(Library().FindBank("PURECOMP", "P", entry, false));
    LocatedBank bank;
    bank.OpenTree(Library(), entry + format::kBankHead);
    *AddressOf(bank.Tree(), number) = 5;  // of no block
    ASSERT_TRUE(bank.Tree().WriteCurrentNode());
  }

  FaceRef<IZelBankDef> component_{NewBank("PURECOMP")};
};

TEST_F(ComponentColumnsTest, ConstantsAndIdentityAreAsItemByItem) {
  std::int32_t constants = 0;
  ZelConstantInfo const* const catalogue = GetConstantCatalogue(constants);
  auto const columns = static_cast<std::size_t>(constants);
  constexpr std::size_t kRows = 100;
  for (accModes const mode : {accUpdate, accRead}) {
    if (mode == accRead) Reopen(accRead);
    std::vector<std::vector<double>> values(columns, std::vector<double>(kRows));
    std::vector<std::int32_t> keys(kRows), number(kRows), cas(kRows), refCode(kRows), kept(kRows);
    std::vector<std::array<char, 108>> ids(kRows);
    std::vector<std::array<char, 41>> name(kRows);
    std::vector<std::array<char, 21>> formula(kRows);
    std::vector<std::array<char, 101>> smiles(kRows);
    Reader const reader = Open("PURECOMP", "P");
    ASSERT_TRUE(reader);
    ASSERT_EQ(reader->GetKeyWords(), 1);
    EXPECT_TRUE(reader->AddKeys(keys.data()));
    for (std::size_t i = 0; i < columns; ++i) {
      EXPECT_TRUE(reader->AddReals(catalogue[i].keyword, values[i].data()));
    }
    EXPECT_TRUE(reader->AddIntegers("number", number.data()));
    EXPECT_TRUE(reader->AddIntegers("CAS", cas.data()));
    EXPECT_TRUE(reader->AddIntegers("refcode", refCode.data()));
    EXPECT_TRUE(reader->AddIntegers("keepFormula", kept.data()));
    EXPECT_TRUE(reader->AddTexts("ids", ids[0].data()));
    EXPECT_TRUE(reader->AddTexts("name", name[0].data()));
    EXPECT_TRUE(reader->AddTexts("formula", formula[0].data()));
    EXPECT_TRUE(reader->AddTexts("smiles", smiles[0].data()));
    ASSERT_EQ(reader->Read(static_cast<std::int32_t>(kRows)), 25);
    Maint().BeginItemWalk("PURECOMP", "P");
    std::int32_t key[10];
    for (std::size_t r = 0; Maint().NextItem(key, component_.Get()); ++r) {
      SCOPED_TRACE(key[0]);
      std::int32_t ownNumber = 0, ownCas = 0, ownCode = 0;
      char ownIds[12][9], ownName[41], ownFormula[21], ownSmiles[101];
      std::uint8_t ownKept = 0;
      Face()->GetIdentity(&ownNumber, &ownCas, &ownCode, ownIds, ownName, ownFormula, &ownKept);
      Face()->GetSmiles(ownSmiles);
      EXPECT_EQ(keys[r], key[0]);
      EXPECT_EQ(number[r], ownNumber);
      EXPECT_EQ(cas[r], ownCas);
      EXPECT_EQ(refCode[r], ownCode);
      EXPECT_EQ(kept[r], ownKept);
      EXPECT_STREQ(name[r].data(), ownName);
      EXPECT_STREQ(formula[r].data(), ownFormula);
      EXPECT_STREQ(smiles[r].data(), ownSmiles);
      for (std::size_t i = 0; i < 12; ++i) EXPECT_STREQ(ids[r].data() + 9 * i, ownIds[i]) << i;
      for (std::size_t i = 0; i < columns; ++i) {
        double own = 0.0;
        Face()->GetProperty(catalogue[i].index, &own);
        EXPECT_EQ(values[i][r], own) << catalogue[i].keyword;
      }
    }
  }
}

struct Findings final : ZelFindingSink {
  void Found(zelFindings severity, char const* id, char const* place, char const*) override {
    EXPECT_EQ(severity, findingDamage);
    places.push_back(std::string(id) + " " + place);
  }
  std::vector<std::string> places;
};

TEST_F(ComponentColumnsTest, ItemThatCannotBeReadThrowsOrIsReportedAndLeftOut) {
  Damage(7);
  std::array<double, 30> tc{};
  std::array<std::int32_t, 30> keys{};
  {
    Reader const reader = Open("PURECOMP", "P");
    reader->AddKeys(keys.data());
    reader->AddReals("TC", tc.data());
    EXPECT_EQ(reader->Read(6), 6);
    EXPECT_THROW(reader->Read(30), unsigned long);
    EXPECT_EQ(reader->Read(30), 18) << "goes on after the item";
    EXPECT_EQ(keys[0], 8);
  }
  Findings findings;
  SetItemFindings(library_.get(), &findings);
  Reader const reader = Open("PURECOMP", "P");
  reader->AddKeys(keys.data());
  reader->AddReals("TC", tc.data());
  EXPECT_EQ(reader->Read(30), 24);
  EXPECT_EQ(keys[5], 6);
  EXPECT_EQ(keys[6], 8);
  EXPECT_EQ(findings.places, std::vector<std::string>{"item PURECOMP:P 7"});
  SetItemFindings(library_.get(), nullptr);
}

// --- failures ------------------------------------------------------------------------------------

TEST_F(ColumnsTest, WithoutABankThereIsNoReader) {
  Maint().CreateBank("PSRK", "P", 1);
  EXPECT_FALSE(Open("PSRK", "Q"));
  EXPECT_FALSE(Open("NRTL", "P"));
  EXPECT_FALSE(Open("NOTYPE", "P"));
  EXPECT_FALSE(Open(nullptr, nullptr));
  EXPECT_TRUE(Open("psrk", "p"));
  EXPECT_EQ(ColumnReader::NewColumnReader(nullptr, "PSRK", "P"), nullptr);
  Library().CloseLibFile();
  EXPECT_FALSE(Open("PSRK", "P"));
}

TEST_F(ColumnsTest, OtherNamesAndNullArraysAddNothing) {
  Maint().CreateBank("VANLAAR", "A", 0);
  SetAij(1.5, 2.5);
  key_.SetKey(1L, 2L);
  Maint().WriteItem(vanLaar_.Get(), "A", &key_);
  Reader const reader = Open("VANLAAR", "A");
  ASSERT_TRUE(reader);
  double aij = 0.0;
  std::int32_t word = 0;
  EXPECT_FALSE(reader->AddKeys(nullptr));
  EXPECT_FALSE(reader->AddReals("aij", nullptr));
  EXPECT_FALSE(reader->AddReals(nullptr, &aij));
  EXPECT_FALSE(reader->AddReals("bij ", &aij));
  EXPECT_FALSE(reader->AddIntegers("aij", &word));
  EXPECT_FALSE(reader->AddTexts("aij", nullptr));
  EXPECT_TRUE(reader->AddReals("AIJ", &aij));
  EXPECT_EQ(reader->Read(0), 0);
  EXPECT_EQ(reader->Read(-1), 0);
  EXPECT_EQ(reader->Read(1), 1);
  EXPECT_EQ(aij, 1.5);
  EXPECT_EQ(word, 0);
  EXPECT_EQ(reader->Read(1), 0);
}

TEST_F(ColumnsTest, WithoutColumnsItemsAreCountedAndAClosedLibraryHasNone) {
  Maint().CreateBank("VANLAAR", "A", 0);
  for (long i = 1; i <= 100; ++i) {
    key_.SetKey(i, 1000L);
    Maint().WriteItem(vanLaar_.Get(), "A", &key_);
  }
  Reader const reader = Open("VANLAAR", "A");
  EXPECT_EQ(reader->Read(60), 60);
  Library().CloseLibFile();
  EXPECT_EQ(reader->Read(60), 0);
  ASSERT_EQ(Library().ReopenLibFile(), openOk);
  EXPECT_EQ(Open("VANLAAR", "A")->Read(1000), 100);
}

}  // namespace
}  // namespace zel
