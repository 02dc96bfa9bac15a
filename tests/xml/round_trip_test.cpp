// What is exported is imported again: libraries with every type, and the known differences.
#include "maint/component_identity.h"
#include "purecomp/tables.h"
#include "tests/support/sample_component.h"
#include "tests/support/sample_library.h"
#include "tests/xml/export_fixture.h"
#include "zelaccess/Module.h"

namespace zel {
namespace {

class RoundTripTest : public test::ExportTest {
 protected:
  RoundTripTest() { InitZelAccess(); }

  // Exports a library and reads the documents into a new one in memory.
  void ReadBack(LibMaint_i& from, char const* path) {
    ASSERT_TRUE(from.ExportLibrary((Out() + "doc.xml").c_str()));
    copyMaint_.reset();  // before its library
    copy_ = std::make_unique<LibFile_i>(files_, accUpdate, path, "copy");
    ASSERT_EQ(copy_->CreateNew(libKind11), openOk);
    copyMaint_ = std::make_unique<LibMaint_i>(copy_.get());
    copyMaint_->SetLogLevel(1);
    ::testing::internal::CaptureStdout();
    imported_ = copyMaint_->Import((Out() + "doc.xml").c_str(), false);
    lines_ = ::testing::internal::GetCapturedStdout();
  }
  // Errors and warnings of the import.
  std::string Reports() const {
    std::string reports;
    for (std::size_t at = lines_.find("*** "); at != std::string::npos;
         at = lines_.find("*** ", at + 1)) {
      reports += lines_.substr(at, lines_.find('\n', at) + 1 - at);
    }
    return reports;
  }

  test::MemoryFileSystem files_;
  std::unique_ptr<LibFile_i> copy_;
  std::unique_ptr<LibMaint_i> copyMaint_;
  bool imported_ = false;
  std::string lines_;
};

// Makes a library of all types with data that documents can hold: what has a name in documents, and
// correlations with a unit.
void MakeTellable(LibMaint_i& maint) {
  Key_i key;
  FaceRef<IZelBankDef> const bank(NewPureComp());
  auto const component = FaceRef<IZelPureComp>::Of(bank.Get(), IID_IZelPureComp);
  key.SetKey(static_cast<long>(test::kSampleComponent));
  ASSERT_TRUE(maint.ReadItem(bank.Get(), "B1", &key));
  for (std::uint32_t i = 0; i < kNamedCorrelations; ++i) {
    std::int32_t equation, tempUnit, propUnit, logBasis, basis, count;
    double factor, tMin, tMax, c[15];
    component->GetCorrelation(i, &equation, &tempUnit, &propUnit, &factor, &logBasis, &basis,
                              &count, &tMin, &tMax, c);
    // The usual unit of the last correlation is not a molar volume.
    std::int32_t const unit = i == 17 ? 22024 : kCorrelationRows[i].defaultUnit;
    component->SetCorrelation(i, equation, tempUnit, unit, logBasis, basis, count, tMin, tMax, c);
  }
  ASSERT_TRUE(maint.RewriteItem(bank.Get()));
  FaceRef<IZelBankDef> const wilson(NewBank("WILSON"));
  std::int32_t words[10];
  for (char const* name : {"B1", "B2"}) {
    ASSERT_TRUE(maint.BeginItemWalk("WILSON", name));
    ASSERT_TRUE(maint.NextItemKey(words));
    key.SetKeyWords(2, words);
    ASSERT_TRUE(maint.ReadItem(wilson.Get(), name, &key));
    for (char const* field : {"form", "eqnForm", "volRatio"}) {
      char names[10][13];
      std::int32_t values[10];
      std::int32_t byDefault;
      wilson->GetEnumList(field, names, values, &byDefault);
      wilson->SetIntField(field, values);
    }
    ASSERT_TRUE(maint.RewriteItem(wilson.Get()));
  }
}

TEST_F(RoundTripTest, LibraryOfAllTypesComesBackItemByItem) {
  for (bool componentFiles : {false, true}) {
    test::MakeSampleLibrary(files_);
    {
      LibFile_i sample(files_, accUpdate, test::kSamplePath, "sample");
      ASSERT_EQ(sample.OpenExisting({true, ""}, nullptr), openOk);
      LibMaint_i maint(&sample);
      maint.SetComponentFiles(componentFiles);
      MakeTellable(maint);
      ReadBack(maint, "/copy.lb1");
    }
    EXPECT_TRUE(imported_);
    EXPECT_EQ(Reports(), "");
    copyMaint_.reset();
    copy_->CloseLibFile();
    test::Finding const original = test::ReadEverything(files_);
    for (char const* end : {"1", "2"}) {
      files_.Contents(std::string("/sample.lb") + end) =
          files_.Contents(std::string("/copy.lb") + end);
    }
    test::Finding const copy = test::ReadEverything(files_);
    EXPECT_EQ(copy.banks.size(), original.banks.size());
    for (auto const& [bank, text] : original.banks) {
      auto const same = copy.banks.find(bank);
      ASSERT_NE(same, copy.banks.end()) << bank;
      EXPECT_TRUE(same->second == text) << bank;
    }
  }
}

// --- what does not come back ---------------------------------------------------------------------

TEST_F(RoundTripTest, UnescapedTextMakesADocumentUnreadable) {
  Put("GRPDESC", "G", {1, 2}, [](IZelBankDef* bank) { bank->SetStringField("name", "A & B"); });
  ReadBack(Maint(), "/copy.lb1");
  EXPECT_FALSE(imported_);
  EXPECT_EQ(Reports(), "*** doc.xml : error : Format error in XML document \"" +
                           Out("Bank-GRPDESC-G.xml") + "\"\n");
}

// Names of banks are in the header, in an attribute and in the name of the file, always unchanged.
TEST_F(RoundTripTest, NamesOfBanksGoOutAsTheyStand) {
  struct {
    char const* name;
    bool comesBack;
  } const rows[] = {{"A--B", false}, {"A&B", false}, {"A<B", false}, {"A\"B", false},
                    {"A>B", true},   {"A-B", true},  {"A'B", true}};
  int copies = 0;
  for (auto const& row : rows) {
    ASSERT_TRUE(Maint().CreateBank("VANLAAR", row.name, 0));
    ReadBack(Maint(), ("/copy" + std::to_string(++copies) + ".lb1").c_str());
    std::string const file = "Bank-VANLAAR-" + std::string(row.name) + ".xml";
    std::string const name = row.name;
    EXPECT_NE(FileText(Out(file)).find("name \"" + name + "\"\n"), std::string::npos);
    EXPECT_NE(FileText(Out(file)).find("name=\"" + name + "\">"), std::string::npos);
    EXPECT_EQ(imported_, row.comesBack) << row.name << lines_;
    EXPECT_EQ(copyMaint_->BankExists("VANLAAR", row.name), row.comesBack) << row.name;
    Maint().DeleteBank("VANLAAR", row.name);
  }
}

TEST_F(RoundTripTest, NamedValueWithoutANameIsRefused) {
  Put("WILSON", "W", {1, 2}, [](IZelBankDef* bank) {
    std::int32_t const odd = 99;
    bank->SetIntField("form", &odd);
  });
  ReadBack(Maint(), "/copy.lb1");
  EXPECT_EQ(Reports(),
            "*** Bank-WILSON-W.xml : error : Item \"00000001:00000002\" - \"99\" is not a "
            "valid value for tag <form>\n");
}

TEST_F(RoundTripTest, NumbersOfNineDigitsAreRefused) {
  Put("ALPHA", "A", {123456789}, [](IZelBankDef*) {});
  ReadBack(Maint(), "/copy.lb1");
  EXPECT_NE(Reports().find("exceeding more than 8 digits for the item 123456789"),
            std::string::npos);
}

TEST_F(RoundTripTest, ComponentWithItselfComesBackFromOneNumber) {
  Put("HOCV", "H", {7, 7}, [](IZelBankDef*) {});
  ReadBack(Maint(), "/copy.lb1");
  EXPECT_TRUE(imported_);
  std::int32_t words[10];
  ASSERT_TRUE(copyMaint_->BeginItemWalk("HOCV", "H"));
  ASSERT_TRUE(copyMaint_->NextItemKey(words));
  EXPECT_EQ(words[0], 7);
  EXPECT_EQ(words[1], 7);
}

TEST_F(RoundTripTest, BankOfTheFirstFormatWithoutItsNumberComesBackInTheHighest) {
  Maint().CreateBank("NRTL", "ONE", 1);
  Maint().SetWriteFormat(false);
  ReadBack(Maint(), "/copy.lb1");
  EXPECT_TRUE(imported_);
  EXPECT_EQ(copyMaint_->GetBankFormat("NRTL", "ONE"), 2);
  Maint().SetWriteFormat(true);
  ReadBack(Maint(), "/copy2.lb1");
  EXPECT_EQ(copyMaint_->GetBankFormat("NRTL", "ONE"), 1);
}

TEST_F(RoundTripTest, UndefinedValuesBetweenOthersComeBack) {
  double const kij[] = {0.5, gen_GetUndefDouble(), gen_GetUndefDouble(), 4.0};
  Put("PRO", "P", {1, 2}, [&](IZelBankDef* bank) { bank->SetDoubleField("kij", kij); });
  ReadBack(Maint(), "/copy.lb1");
  EXPECT_EQ(Reports(), "");
  FaceRef<IZelBankDef> const bank(NewBank("PRO"));
  Key_i key;
  key.SetKey(1L, 2L);
  ASSERT_TRUE(copyMaint_->ReadItem(bank.Get(), "P", &key));
  double read[4] = {};
  bank->GetDoubleField("kij", read);
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(read[i], kij[i]) << i;
}

class ComponentRoundTripTest : public RoundTripTest {
 protected:
  ComponentRoundTripTest() { Maint().CreateBank("PURECOMP", "PURE", 0); }

  template <typename Fill>
  void Through(Fill const& fill) {
    test::ComponentBank component;
    char const ids[12][9] = {"A"};
    component->SetIdentity(7, 0, 0, ids, "Name", "C2H6O", 0);
    component->SetPhase(3);
    fill(component.Get());
    Key_i key;
    key.SetKey(7L);
    ASSERT_TRUE(Maint().WriteItem(component.Def(), "PURE", &key));
    ReadBack(Maint(), "/copy.lb1");
    found_ = copyMaint_->ReadItem(bank_.Def(), "PURE", &key);
  }

  test::ComponentBank bank_;
  bool found_ = false;
};

TEST_F(ComponentRoundTripTest, DoubleQuoteOfANameStaysItsMark) {
  Through([](IZelPureComp* c) {
    char const ids[12][9] = {"A"};
    c->SetIdentity(7, 0, 0, ids, "a\"b", "C2H6O", 0);
  });
  ASSERT_TRUE(found_) << Reports();
  std::int32_t number, cas, code;
  char ids[12][9], name[41], formula[21];
  std::uint8_t keep;
  bank_->GetIdentity(&number, &cas, &code, ids, name, formula, &keep);
  EXPECT_STREQ(name, "a%quot;b");
}

TEST_F(ComponentRoundTripTest, RealsComeBackWithSevenDigits) {
  Through([](IZelPureComp* c) { c->SetProperty(1, 1000.0 / 3.0); });
  ASSERT_TRUE(found_) << Reports();
  double value = 0.0;
  bank_->GetProperty(1, &value);
  EXPECT_EQ(value, 333.3333);
}

TEST_F(ComponentRoundTripTest, PhasesAndTheFlagOfAFormulaComeBack) {
  for (std::int32_t phase : {4, 6, 7, 3}) {
    test::ComponentBank component;
    char const ids[12][9] = {"A"};
    component->SetIdentity(7, 0, 0, ids, "Name", "C2H6O", phase == 6 ? 1 : 0);
    component->SetPhase(phase);
    Key_i key;
    key.SetKey(7L);
    ASSERT_TRUE(Maint().WriteItem(component.Def(), "PURE", &key));
    ReadBack(Maint(), ("/copy" + std::to_string(phase) + ".lb1").c_str());
    ASSERT_TRUE(copyMaint_->ReadItem(bank_.Def(), "PURE", &key)) << Reports();
    std::int32_t read = 0;
    bank_->GetPhase(&read);
    EXPECT_EQ(read, phase);
    EXPECT_EQ(ComponentIdentity(bank_.Get()).keepFormula, phase == 6 ? 1 : 0);
  }
}

TEST_F(ComponentRoundTripTest, TwoUnitsOfMolarVolumeAreRefused) {
  Through([](IZelPureComp* c) {
    double const one[15] = {1.0};
    c->SetCorrelation(17, 1, 10, 22012, 1, 1, 1, 200.0, 300.0, one);
  });
  EXPECT_FALSE(imported_);
  EXPECT_EQ(Reports(),
            "*** Comp-PURE-A.xml : error : Component \"A\" (7) - Unrecognized property unit "
            "\"lit/kg-mole\" found for correlation \"CharacteristicVolume\"\n");
  EXPECT_TRUE(found_);
}

// A code without a word is left out, and the import uses the correlation's usual unit.
TEST_F(ComponentRoundTripTest, UnitWithoutAWordBecomesTheUsualOne) {
  Through([](IZelPureComp* c) {
    double const one[15] = {1.0};
    c->SetCorrelation(0, 1, 10, 0, 1, 1, 1, 200.0, 300.0, one);
  });
  ASSERT_TRUE(found_) << Reports();
  std::int32_t equation, tempUnit, propUnit, logBasis, basis, count;
  double factor, tMin, tMax, c[15];
  EXPECT_EQ(bank_->GetCorrelation(0, &equation, &tempUnit, &propUnit, &factor, &logBasis, &basis,
                                  &count, &tMin, &tMax, c),
            kStatusOk);
  EXPECT_EQ(propUnit, 4015);
}

TEST_F(ComponentRoundTripTest, FormsAbove100AndOneReferenceCodeAreNotWritten) {
  Through([](IZelPureComp* c) {
    double const one[15] = {1.0};
    c->SetCorrelation(0, 117, 10, 4015, 1, 1, 1, 200.0, 300.0, one);
    c->SetCorrelation(1, 126, 10, 28018, 1, 1, 1, 200.0, 300.0, one);
    c->SetCorrelation(13, 134, 10, 30016, 1, 1, 1, 200.0, 300.0, one);
    c->SetCorrelation(14, 100, 10, 30016, 1, 1, 1, 200.0, 300.0, one);
    c->SetCorrelation(17, 1, 10, 22024, 1, 1, 1, 200.0, 300.0, one);
    c->SetCorrelationRefCode(17, 5);
  });
  EXPECT_TRUE(imported_) << Reports();
  std::string const text = Body("Comp-PURE-A.xml");
  EXPECT_EQ(text.find("VaporPressure"), std::string::npos);
  EXPECT_EQ(text.find("IdealEnthalpy"), std::string::npos);
  EXPECT_EQ(text.find("IdealGasCp"), std::string::npos);
  EXPECT_NE(text.find("name=\"LiquidCp\" equation=\"100\""), std::string::npos);
  EXPECT_NE(text.find("CharacteristicVolume"), std::string::npos);
  EXPECT_EQ(text.find("refCode"), std::string::npos);
}

TEST_F(ComponentRoundTripTest, UndefinedCoefficientComesBackAsItsNumber) {
  Through([](IZelPureComp* c) {
    double const values[15] = {1.0, gen_GetUndefDouble(), 2.0};
    c->SetCorrelation(0, 1, 10, 4015, 1, 1, 3, 200.0, 300.0, values);
  });
  EXPECT_TRUE(imported_) << Reports();
  EXPECT_NE(Body("Comp-PURE-A.xml").find(" 1 -1e+35 2\n"), std::string::npos);
}

}  // namespace
}  // namespace zel
