// Text dumps next to a library.
#include <fstream>
#include <iterator>
#include <memory>

#include "frame/ascii.h"
#include "maint/text_dump.h"
#include "store/format.h"
#include "store/key.h"
#include "tests/frame/temp_folder.h"
#include "tests/support/sample_component.h"
#include "zelaccess/Verify.h"

namespace zel {
namespace {

using test::ComponentBank;

class TextDumpTest : public test::TempFolderTest {
 protected:
  TextDumpTest() { Make("lib"); }

  void Make(std::string const& stem) {
    maint_.reset();
    library_ = std::make_unique<LibFile_i>(platform::SystemFileSystem(), accUpdate,
                                           Path(stem + ".lb1").c_str(), "A name");
    ASSERT_EQ(library_->CreateNew(libKind11), openOk);
    library_->SetDescriptionAndVersion("words", "V1.5");
    maint_ = std::make_unique<LibMaint_i>(library_.get());
  }
  struct Data {
    double nbp = gen_GetUndefDouble();
    double mw = gen_GetUndefDouble();
    double tc = gen_GetUndefDouble();
    std::int32_t phase = 3;
  };
  void Add(char const* bank, std::int32_t number, std::initializer_list<char const*> ids,
           Data const& data, std::int32_t cas = 0) {
    char texts[12][9] = {};
    std::size_t n = 0;
    for (char const* id : ids) CopyText(id, texts[n++], sizeof texts[0]);
    component_.Io()->Clear();
    component_->SetIdentity(number, cas, 0, texts, "Name of it", "C2H6O", 0);
    component_->SetPhase(data.phase);
    component_->SetProperty(8, data.nbp);
    component_->SetProperty(0, data.mw);
    component_->SetProperty(1, data.tc);
    Key_i key;
    key.SetKey(static_cast<long>(number));
    ASSERT_TRUE(maint_->WriteItem(component_.Def(), bank, &key));
  }
  std::string FileText(std::string_view name) const {
    std::ifstream file(Path(name), std::ios::binary);
    if (!file) return "no file";
    return {std::istreambuf_iterator<char>(file), {}};
  }
  // The index of bank PURE without its two title lines.
  std::string Components() {
    maint_->WriteTextDump(library_.get());
    std::string const text = FileText("lib.PURE.cmp");
    std::string const titles = "1\nlib\tPURE\tV1.5\n";
    EXPECT_EQ(text.substr(0, titles.size()), titles);
    return text.substr(titles.size());
  }

  std::unique_ptr<LibFile_i> library_;
  std::unique_ptr<LibMaint_i> maint_;
  ComponentBank component_;
};

TEST_F(TextDumpTest, BanksAreListedInTheirOrder) {
  maint_->CreateBank("VANLAAR", "B", 0);
  maint_->CreateBank("NRTL", "A", 0);
  maint_->CreateBank("PURECOMP", "PURE", 0);
  maint_->WriteTextDump(library_.get());
  EXPECT_EQ(FileText("lib.bnk"), "1\nlib\tV1.5\nNRTL\tA\nPURECOMP\tPURE\nVANLAAR\tB\n");
  EXPECT_EQ(FileText("lib.PURE.cmp"), "1\nlib\tPURE\tV1.5\n");
}

TEST_F(TextDumpTest, ComponentHasTwoLines) {
  maint_->CreateBank("PURECOMP", "PURE", 0);
  Add("PURE", 7, {"ETHANOL", "ETOH", "C2H5OH"}, {351.44, 46.06844, 513.92, 7}, 64175);
  Add("PURE", 8, {"ONE"}, {});
  EXPECT_EQ(Components(),
            "Name of it\tVLS\tETHANOL\tC2H6O\t64-17-5\t351.44\t46.0684\n\tETOH\tC2H5OH\n"
            "Name of it\tVL\tONE\tC2H6O\t\t\t\n");
}

TEST_F(TextDumpTest, PhasesHaveWords) {
  maint_->CreateBank("PURECOMP", "PURE", 0);
  char const* const words[] = {"VL", "V", "L", "VL", "S", "VS", "LS", "VLS", ""};
  std::string expected;
  for (std::int32_t phase = 0; phase < 9; ++phase) {
    std::string const id = "ID" + std::to_string(phase);
    Add("PURE", 10 + phase, {id.c_str()}, {300, 20, 500, phase});
    std::int32_t read = 0;
    Key_i key;
    key.SetKey(10L + phase);
    ASSERT_TRUE(maint_->ReadItem(component_.Def(), "PURE", &key));
    component_->GetPhase(&read);
    std::string const word = read == phase || phase == 0 ? words[phase] : "?";
    expected += "Name of it\t" + word + "\t" + id + "\tC2H6O\t\t300\t20" +
                (phase == 4 ? "\tSolid\n" : "\n");
  }
  EXPECT_EQ(Components(), expected);
}

TEST_F(TextDumpTest, PhaseOutOfRangeHasNoWord) {
  maint_->CreateBank("PURECOMP", "PURE", 0);
  std::string expected;
  std::int32_t number = 10;
  for (std::int32_t phase : {8, 100, -1, INT32_MAX, INT32_MIN}) {
    std::string const id = "ID" + std::to_string(number);
    Add("PURE", number++, {id.c_str()}, {300, 20, 500, phase});
    expected += "Name of it\t\t" + id + "\tC2H6O\t\t300\t20\n";
  }
  EXPECT_EQ(Components(), expected);
}

TEST_F(TextDumpTest, LowCriticalTemperatureAndSolidsAreMarked) {
  maint_->CreateBank("PURECOMP", "PURE", 0);
  Add("PURE", 1, {"A"}, {0.0, 1e-7, 399.999, 4});
  Add("PURE", 2, {"B"}, {-1.0, 1234567, 400.0, 3});
  Add("PURE", 3, {"C", "D"}, {1e10, 0.1, 1e-3, 3});
  Add("PURE", 4, {"E"}, {1, 1, 0.0, 4});
  EXPECT_EQ(Components(),
            "Name of it\tS\tA\tC2H6O\t\t0\t1e-07\thsol\tSolid\n"
            "Name of it\tVL\tB\tC2H6O\t\t\t1.23457e+06\n"
            "Name of it\tVL\tC\tC2H6O\t\t1e+10\t0.1\thsol\n\tD\n"
            "Name of it\tS\tE\tC2H6O\t\t1\t1\tSolid\n");
}

TEST_F(TextDumpTest, OneBankNameHasNoIndex) {
  maint_->CreateBank("PURECOMP", "OLILIB", 0);
  maint_->WriteTextDump(library_.get());
  EXPECT_EQ(FileText("lib.bnk"), "1\nlib\tV1.5\nPURECOMP\tOLILIB\n");
  EXPECT_EQ(FileText("lib.OLILIB.cmp"), "no file");
}

TEST_F(TextDumpTest, OldIndexesAreRemoved) {
  for (char const* name : {"lib.GONE.cmp", "lib..cmp", "lib.a.b.cmp", "lib.cmp", "lib.GONE.cmp2",
                           "liba.X.cmp", "LIB.X.cmp", "other.GONE.cmp"}) {
    MakeFile(name, "old");
  }
  MakeFile("lib.bnk", "old");
  maint_->WriteTextDump(library_.get());
  for (char const* name : {"lib.GONE.cmp", "lib..cmp", "lib.a.b.cmp"}) {
    EXPECT_EQ(FileText(name), "no file") << name;
  }
  for (char const* name :
       {"lib.cmp", "lib.GONE.cmp2", "liba.X.cmp", "LIB.X.cmp", "other.GONE.cmp"}) {
    EXPECT_EQ(FileText(name), "old") << name;
  }
  EXPECT_EQ(FileText("lib.bnk"), "1\nlib\tV1.5\n");
}

TEST_F(TextDumpTest, NameWithPatternCharactersIsTakenAsItStands) {
  Make("l*b");
  MakeFile("lib.X.cmp", "old");
  MakeFile("l*b.X.cmp", "old");
  maint_->WriteTextDump(library_.get());
  EXPECT_EQ(FileText("lib.X.cmp"), "old");
  EXPECT_EQ(FileText("l*b.X.cmp"), "no file");
}

TEST_F(TextDumpTest, FileThatCannotBeWrittenIsPassedOver) {
  maint_->CreateBank("PURECOMP", "A", 0);
  maint_->CreateBank("PURECOMP", "B/C", 0);
  maint_->CreateBank("PURECOMP", "D", 0);
  std::filesystem::create_directory(Folder() / "lib.bnk");
  maint_->WriteTextDump(library_.get());
  EXPECT_TRUE(std::filesystem::is_directory(Folder() / "lib.bnk"));
  EXPECT_EQ(FileText("lib.A.cmp"), "1\nlib\tA\tV1.5\n");
  EXPECT_EQ(FileText("lib.D.cmp"), "1\nlib\tD\tV1.5\n");
  maint_->WriteTextDump(nullptr);
}

TEST_F(TextDumpTest, FileThatCannotBeWrittenIsReportedToTheSink) {
  struct Sink final : ZelFindingSink {
    void Found(zelFindings severity, char const* id, char const* place, char const* text) override {
      all.push_back(std::to_string(severity) + "|" + id + "|" + place + "|" + text);
    }
    std::vector<std::string> all;
  } sink;
  maint_->CreateBank("PURECOMP", "A", 0);
  std::filesystem::create_directory(Folder() / "lib.bnk");
  SetItemFindings(library_.get(), &sink);
  maint_->WriteTextDump(library_.get());
  SetItemFindings(library_.get(), nullptr);
  EXPECT_EQ(sink.all, std::vector<std::string>{std::to_string(findingDamage) + "|file|" +
                                               Path("lib.bnk") + "|cannot be written whole"});
}

// The head of a bank's tree is read from the file: it may claim longer keys than components have.
TEST_F(TextDumpTest, BankWhoseKeysCannotBeThoseOfComponentsHasTitlesOnly) {
  constexpr std::int32_t kKeyWords = format::kMaxKeyWords - 1;
  maint_->CreateBank("PURECOMP", "PURE", 0);
  Add("PURE", 7, {"ETHANOL"}, {});
  std::int32_t const* found = nullptr;
  std::int32_t* entry = nullptr;
  ASSERT_TRUE(library_->FindBank("PURECOMP", "PURE", found, false));
  ASSERT_TRUE(library_->GetBankTree()->GetCurrentData(entry));
  std::int32_t* head = entry + format::kBankHead;
  head[format::kHeadKeyWords] = kKeyWords;
  head[format::kHeadEntryWords] = kKeyWords + 1;
  head[format::kHeadMaxEntries] = format::kNodeRoom / (kKeyWords + 2);
  ASSERT_TRUE(library_->GetBankTree()->WriteCurrentNode());
  EXPECT_EQ(Components(), "");
}

TEST_F(TextDumpTest, SingleIndexesGoWhereTheyAreToldTo) {
  maint_->CreateBank("PURECOMP", "PURE", 0);
  WriteComponentIndex(library_.get(), "PURE", Path("other.txt"));
  EXPECT_EQ(FileText("other.txt"), "1\nlib\tPURE\tV1.5\n");
  WriteBankIndex(library_.get(), Path(""), "name");
  EXPECT_EQ(FileText("name.bnk"), "1\nlib\tV1.5\nPURECOMP\tPURE\n");
}

}  // namespace
}  // namespace zel
