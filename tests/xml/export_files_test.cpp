// The files that an export writes, their headers, and the documents of libraries and banks.
#include "frame/date_text.h"
#include "maint/document_stack.h"
#include "tests/xml/export_fixture.h"

namespace zel {
namespace {

using Names = std::set<std::string>;

class ExportFilesTest : public test::ExportTest {
 protected:
  static std::string Stars() { return "  -  " + std::string(75, '*') + "\n"; }
  static std::string Purpose(std::string const& label) {
    return "  -  Package:    HALVIK Thermo\n"
           "  -  Component:  ZelLibraryData - Component library data\n"
           "  -  Purpose:    XML data file for " +
           label + "\n";
  }
  static std::string Header(std::string const& label) {
    return "<!--\n" + Stars() + "  -\n" + Purpose(label) + "  -\n" + Stars() + "  -->\n\n";
  }
};

// --- headers -------------------------------------------------------------------------------------

TEST_F(ExportFilesTest, HeaderTellsWhatIsInTheFile) {
  PutComponent(7, {"A"});
  EXPECT_TRUE(Maint().ExportLibrary(Out().c_str()));
  EXPECT_EQ(FileText(Out("lib.xml")), Header("library \"lib\"") +
                                          "<library>\n  <import file=\"Bank-PURECOMP-PURE.xml\" "
                                          "/>\n</library>\n");
  std::string const bank = FileText(Out("Bank-PURECOMP-PURE.xml"));
  EXPECT_EQ(bank.find(Header("bank type \"PURECOMP\", name \"PURE\"")), 0U) << bank;
  std::string const component = FileText(Out("Comp-PURE-A.xml"));
  EXPECT_EQ(
      component.find(Header("bank type \"PURECOMP\", name \"PURE\", component \"A\"") + "<comp>\n"),
      0U)
      << component;
}

TEST_F(ExportFilesTest, BannerAndNoticeAreSwitches) {
  Maint().SetWriteBanner(true);
  EXPECT_TRUE(Maint().ExportLibrary(Out().c_str()));
  std::string const banner = "  -  *** Maintenance Log ***\n  -\n" + Stars() + "  -\n";
  std::string const top = "<!--\n" + Stars() + "  -\n";
  EXPECT_EQ(FileText(Out("lib.xml")), top + banner + Purpose("library \"lib\"") + "  -\n" +
                                          Stars() + "  -->\n\n<library>\n</library>\n");
  EXPECT_TRUE(Maint().ExportLibrary(Out().c_str(), false));
  EXPECT_EQ(FileText(Out("lib.xml")), Header("library \"lib\"") + "<library>\n</library>\n");
  Maint().SetWriteBanner(false);
  EXPECT_TRUE(Maint().ExportLibrary(Out().c_str(), true));
  EXPECT_NE(FileText(Out("lib.xml")).find(banner), std::string::npos);

  Maint().SetWriteNotice(true);
  EXPECT_TRUE(Maint().ExportLibrary(Out().c_str()));
  std::string const text = FileText(Out("lib.xml"));
  std::size_t const at = text.find(Purpose("library \"lib\"")) + Purpose("library \"lib\"").size();
  std::string notice = text.substr(at, text.find("  -->") - at);
  EXPECT_EQ(notice.substr(0, 4), "  -\n");
  notice = notice.substr(4);
  std::string const end = "  -\n" + Stars();
  ASSERT_GT(notice.size(), end.size());
  EXPECT_EQ(notice.substr(notice.size() - end.size()), end);
  notice.resize(notice.size() - end.size());
  EXPECT_EQ(std::count(notice.begin(), notice.end(), '\n'), 3);
  EXPECT_NE(notice.substr(0, notice.find('\n')).find(std::to_string(CurrentYear())),
            std::string::npos);
  for (std::size_t line = 0; line < notice.size(); line = notice.find('\n', line) + 1) {
    EXPECT_EQ(notice.substr(line, 5), "  -  ");
    EXPECT_EQ(notice.substr(line + 5, notice.find('\n', line) - line - 5).find("--"),
              std::string::npos);
  }
}

TEST_F(ExportFilesTest, LabelHas99Characters) {
  PutComponent(7, {"ABCDEFGH"}, "BANKNAME");
  // Longer than any real label, because of the ID that the caller passes.
  std::string const id = "ABCDEFGH" + std::string(80, 'x');
  EXPECT_TRUE(Maint().ExportComponentById("BANKNAME", id.c_str(), Out("c.xml").c_str()));
  std::string const label = "bank type \"PURECOMP\", name \"BANKNAME\", component \"" + id + "\"";
  EXPECT_EQ(FileText(Out("c.xml")).find(Header(label.substr(0, 99))), 0U);
}

// --- file names ----------------------------------------------------------------------------------

TEST_F(ExportFilesTest, PathGivesFolderNameAndExtension) {
  PutComponent(7, {"A"});
  Put("VANLAAR", "V", {1, 2}, [](IZelBankDef*) {});
  EXPECT_TRUE(Maint().ExportLibrary(Out("all.txt").c_str()));
  EXPECT_EQ(Files(),
            (Names{"all.txt", "Bank-PURECOMP-PURE.txt", "Bank-VANLAAR-V.txt", "Comp-PURE-A.txt"}));
  EXPECT_NE(FileText(Out("all.txt")).find("<import file=\"Bank-VANLAAR-V.txt\" />"),
            std::string::npos);
}

TEST_F(ExportFilesTest, WithoutAPathFilesStandBesideTheLibrary) {
  Put("VANLAAR", "V", {1, 2}, [](IZelBankDef*) {});
  PutComponent(7, {"A"});
  EXPECT_TRUE(Maint().ExportLibrary(""));
  EXPECT_TRUE(Maint().ExportBank("VANLAAR", "V", nullptr));
  EXPECT_TRUE(Maint().ExportComponentByNumber("PURE", 7, ".txt"));
  EXPECT_TRUE(Maint().ExportComponentById("PURE", "A", "name"));
  for (char const* name : {"lib.xml", "Bank-VANLAAR-V.xml", "Bank-PURECOMP-PURE.xml",
                           "Comp-PURE-A.xml", "Comp-PURE-7.txt", "name.xml"}) {
    EXPECT_NE(FileText(Path(name)), "no file") << name;
  }
  EXPECT_EQ(Files(), Names{});
}

TEST_F(ExportFilesTest, PointInAFolderIsNoExtension) {
  std::filesystem::create_directory(Folder() / "dir.v2");
  Put("VANLAAR", "V", {1, 2}, [](IZelBankDef*) {});
  EXPECT_TRUE(Maint().ExportBank("VANLAAR", "V", Path("dir.v2/name").c_str()));
  EXPECT_NE(FileText(Path("dir.v2/name.xml")), "no file");
}

TEST_F(ExportFilesTest, GivenNameServesBankAndComponent) {
  Put("VANLAAR", "V", {1, 2}, [](IZelBankDef*) {});
  Put("VANLAAR", "W", {3, 4}, [](IZelBankDef*) {});
  EXPECT_TRUE(Maint().ExportBank("VANLAAR", "V", Out("one.xml").c_str()));
  EXPECT_TRUE(Maint().ExportBank("VANLAAR", "W", Out("one.xml").c_str())) << "written over";
  EXPECT_EQ(Files(), Names{"one.xml"});
  EXPECT_NE(Body("one.xml").find("name=\"W\""), std::string::npos);
}

TEST_F(ExportFilesTest, ComponentsGoInlineWhenTheyHaveNoFiles) {
  PutComponent(7, {"A"});
  Maint().SetComponentFiles(false);
  EXPECT_TRUE(Maint().ExportLibrary(Out().c_str()));
  EXPECT_EQ(Files(), (Names{"lib.xml", "Bank-PURECOMP-PURE.xml"}));
  EXPECT_EQ(Body("Bank-PURECOMP-PURE.xml"),
            "<bank type=\"PURECOMP\" name=\"PURE\">\n"
            "  <comp>\n    <id number=\"7\" name=\"Name\" formula=\"C2H6O\">\n      A\n    </id>\n"
            "  </comp>\n</bank>\n");
  EXPECT_TRUE(Maint().ExportBank("PURECOMP", "PURE", Out("b.xml").c_str(), false, true));
  EXPECT_EQ(Body("b.xml"),
            "<bank type=\"PURECOMP\" name=\"PURE\">\n"
            "  <import file=\"Comp-PURE-A.xml\" />\n</bank>\n");
  EXPECT_EQ(
      Body("Comp-PURE-A.xml"),
      "<comp>\n  <id number=\"7\" name=\"Name\" formula=\"C2H6O\">\n    A\n  </id>\n</comp>\n");
}

TEST_F(ExportFilesTest, ComponentsThatAreNotFoundByTheirIdAreLeftOut) {
  PutComponent(7, {"A"});
  PutComponent(8, {});
  EXPECT_TRUE(Maint().ExportBank("PURECOMP", "PURE", Out("b.xml").c_str(), false, true));
  EXPECT_TRUE(Maint().ExportBank("PURECOMP", "PURE", Out("c.xml").c_str(), false, false));
  EXPECT_EQ(Files(), (Names{"b.xml", "c.xml", "Comp-PURE-A.xml"}));
  EXPECT_EQ(Body("c.xml").find("number=\"8\""), std::string::npos);
}

// --- results -------------------------------------------------------------------------------------

TEST_F(ExportFilesTest, MissingThingsGiveFalse) {
  PutComponent(7, {"A"});
  EXPECT_FALSE(Maint().ExportBank("VANLAAR", "V", Out().c_str()));
  EXPECT_FALSE(Maint().ExportBank(nullptr, nullptr, nullptr));
  EXPECT_FALSE(Maint().ExportComponentByNumber("PURE", 8, Out().c_str()));
  EXPECT_FALSE(Maint().ExportComponentByNumber("NONE", 7, Out().c_str()));
  EXPECT_FALSE(Maint().ExportComponentById("PURE", "B", Out().c_str()));
  EXPECT_FALSE(Maint().ExportComponentById("PURE", nullptr, Out().c_str()));
  EXPECT_EQ(Files(), Names{});
  EXPECT_TRUE(Maint().ExportComponentByNumber("PURE", 7, Out().c_str(), true));
  EXPECT_TRUE(Maint().ExportComponentById("PURE", "a", Out().c_str(), true));
  EXPECT_EQ(Files(), (Names{"Comp-PURE-7.xml", "Comp-PURE-a.xml"}));
  EXPECT_EQ(Maint().GetLastErrorText(), nullptr);
}

TEST_F(ExportFilesTest, FileThatCannotBeOpenedGivesFalse) {
  Put("VANLAAR", "V", {1, 2}, [](IZelBankDef*) {});
  EXPECT_FALSE(Maint().ExportLibrary(Path("none/such.xml").c_str()));
  EXPECT_FALSE(Maint().ExportBank("VANLAAR", "V", Path("none/such.xml").c_str()));
  EXPECT_FALSE(Maint().ExportLibrary(Out(std::string(300, 'a')).c_str()));
  // The bank's file cannot be made: what was written of the library's file is kept.
  std::filesystem::create_directory(Folder() / "out/Bank-VANLAAR-V.xml");
  EXPECT_FALSE(Maint().ExportLibrary(Out().c_str()));
  EXPECT_EQ(Body("lib.xml"), "<library>\n");
}

TEST_F(ExportFilesTest, ComponentFileThatCannotBeOpenedIsLeftOutOfItsBank) {
  PutComponent(7, {"A"});
  PutComponent(8, {"B"});
  std::filesystem::create_directories(Out("Comp-PURE-A.xml"));
  EXPECT_FALSE(Maint().ExportLibrary(Out().c_str()));
  EXPECT_EQ(Body("Bank-PURECOMP-PURE.xml"),
            "<bank type=\"PURECOMP\" name=\"PURE\">\n"
            "  <import file=\"Comp-PURE-B.xml\" />\n</bank>\n");
  EXPECT_NE(Body("Comp-PURE-B.xml").find("number=\"8\""), std::string::npos);
  std::filesystem::remove(Out("Comp-PURE-A.xml"));
  EXPECT_TRUE(Maint().ExportLibrary(Out().c_str()));
}

// An open library cannot be replaced by a document, whether it is open for reading or for update.
TEST_F(ExportFilesTest, OpenLibraryIsNotWrittenOver) {
  for (int i = 1; i < 40; ++i) Put("VANLAAR", "V", {i, i + 1}, [](IZelBankDef*) {});
  for (accModes const mode : {accUpdate, accRead}) {
    if (mode == accRead) Reopen(mode);
    std::string const first = FileText(Path("lib.lb1"));
    std::string const second = FileText(Path("lib.lb2"));
    EXPECT_FALSE(Maint().ExportLibrary(".lb1"));
    EXPECT_FALSE(Maint().ExportLibrary(".lb2"));
    EXPECT_FALSE(Maint().ExportBank("VANLAAR", "V", Path("lib.lb2").c_str()));
    EXPECT_EQ(FileText(Path("lib.lb1")), first);
    EXPECT_EQ(FileText(Path("lib.lb2")), second);
    EXPECT_TRUE(Maint().BankExists("VANLAAR", "V"));
  }
}

TEST_F(ExportFilesTest, FullDiskGivesFalse) {
  Put("VANLAAR", "V", {1, 2}, [](IZelBankDef*) {});
  PutComponent(7, {"A"});
  std::filesystem::create_symlink("/dev/full", Out("full.xml"));
  EXPECT_FALSE(Maint().ExportLibrary(Out("full.xml").c_str()));
  EXPECT_FALSE(Maint().ExportBank("VANLAAR", "V", Out("full.xml").c_str()));
  EXPECT_FALSE(Maint().ExportComponentByNumber("PURE", 7, Out("full.xml").c_str()));
  std::filesystem::remove(Out("Bank-VANLAAR-V.xml"));
  std::filesystem::create_symlink("/dev/full", Out("Bank-VANLAAR-V.xml"));
  EXPECT_FALSE(Maint().ExportLibrary(Out().c_str()));
}

TEST_F(ExportFilesTest, LibraryDocumentInThePlaceOfABankDocumentGivesFalse) {
  Put("VANLAAR", "V", {1, 2}, [](IZelBankDef*) {});
  EXPECT_FALSE(Maint().ExportLibrary(Out("Bank-VANLAAR-V.xml").c_str()));
}

TEST_F(ExportFilesTest, ExtensionAloneServesAllNames) {
  Put("VANLAAR", "V", {1, 2}, [](IZelBankDef*) {});
  EXPECT_TRUE(Maint().ExportBank("VANLAAR", "V", ".txt"));
  EXPECT_NE(FileText(Path("Bank-VANLAAR-V.txt")), "no file");
  std::filesystem::remove(Path("Bank-VANLAAR-V.txt"));
  EXPECT_TRUE(Maint().ExportLibrary(".txt"));
  EXPECT_NE(FileText(Path("Bank-VANLAAR-V.txt")), "no file");
  EXPECT_NE(FileText(Path("lib.txt")).find("<import file=\"Bank-VANLAAR-V.txt\" />"),
            std::string::npos);
}

TEST_F(ExportFilesTest, PathHas259Characters) {
  Put("VANLAAR", "V", {1, 2}, [](IZelBankDef*) {});
  PutComponent(7, {"A"});
  constexpr std::size_t kLongest = 259;
  ASSERT_LT(Out().size(), kLongest - 10);
  std::string const fits(kLongest - Out().size() - 4, 'a');
  for (std::string const& path : {Out(fits + ".xml"), Out(fits)}) {
    EXPECT_TRUE(Maint().ExportLibrary(path.c_str()));
    EXPECT_TRUE(Maint().ExportBank("VANLAAR", "V", path.c_str()));
    EXPECT_TRUE(Maint().ExportComponentByNumber("PURE", 7, path.c_str()));
  }
  for (std::string const& path : {Out(fits + "b.xml"), Out(fits + "b")}) {
    EXPECT_FALSE(Maint().ExportLibrary(path.c_str()));
    EXPECT_FALSE(Maint().ExportBank("VANLAAR", "V", path.c_str()));
    EXPECT_FALSE(Maint().ExportComponentByNumber("PURE", 7, path.c_str()));
  }
  EXPECT_EQ(Files().count(fits + "b.xml"), 0U);
}

TEST_F(ExportFilesTest, FormsWithoutASwitchTakeTheStoredOne) {
  PutComponent(7, {"A"});
  auto const hasBanner = [this] {
    return FileText(Out("x.xml")).find("*** Maintenance Log ***") != std::string::npos;
  };
  auto const isInline = [this] { return Body("x.xml").find("<comp>") != std::string::npos; };
  std::string const file = Out("x.xml");
  char const* const path = file.c_str();
  for (bool on : {true, false}) {
    // A switch that is passed takes precedence over the stored one.
    Maint().SetWriteBanner(on);
    EXPECT_TRUE(Maint().ExportComponentByNumber("PURE", 7, path));
    EXPECT_EQ(hasBanner(), on);
    EXPECT_TRUE(Maint().ExportComponentByNumber("PURE", 7, path, !on));
    EXPECT_EQ(hasBanner(), !on);
    EXPECT_TRUE(Maint().ExportComponentById("PURE", "A", path));
    EXPECT_EQ(hasBanner(), on);
    EXPECT_TRUE(Maint().ExportComponentById("PURE", "A", path, !on));
    EXPECT_EQ(hasBanner(), !on);
    EXPECT_TRUE(Maint().ExportLibrary(path));
    EXPECT_EQ(hasBanner(), on);

    Maint().SetComponentFiles(on);
    EXPECT_TRUE(Maint().ExportBank("PURECOMP", "PURE", path));
    EXPECT_EQ(hasBanner(), on);
    EXPECT_EQ(isInline(), !on);
    EXPECT_TRUE(Maint().ExportBank("PURECOMP", "PURE", path, !on));
    EXPECT_EQ(hasBanner(), !on);
    EXPECT_EQ(isInline(), !on);
    EXPECT_TRUE(Maint().ExportBank("PURECOMP", "PURE", path, !on, !on));
    EXPECT_EQ(hasBanner(), !on);
    EXPECT_EQ(isInline(), on);
  }
}

TEST_F(ExportFilesTest, ClosedLibraryAndNoneGiveFalse) {
  LibMaint_i none(nullptr);
  EXPECT_FALSE(none.ExportLibrary(Out().c_str()));
  library_->CloseLibFile();
  EXPECT_FALSE(Maint().ExportLibrary(Out().c_str()));
  EXPECT_FALSE(Maint().ExportComponentByNumber("PURE", 7, Out().c_str()));
}

TEST_F(ExportFilesTest, ExportEndsTheCurrentItemAndWalk) {
  Put("VANLAAR", "V", {1, 2}, [](IZelBankDef*) {});
  FaceRef<IZelBankDef> const bank(NewBank("VANLAAR"));
  Key_i key;
  key.SetKey(1L, 2L);
  ASSERT_TRUE(Maint().ReadItem(bank.Get(), "V", &key));
  EXPECT_TRUE(Maint().ExportBank("VANLAAR", "V", Out().c_str()));
  EXPECT_FALSE(Maint().RewriteItem(bank.Get()));
}

TEST_F(ExportFilesTest, ProgressIsShownByBank) {
  Put("VANLAAR", "V", {1, 2}, [](IZelBankDef*) {});
  PutComponent(7, {"A"});
  Maint().SetLogLevel(1);
  ::testing::internal::CaptureStdout();
  Maint().ExportLibrary(Out().c_str());
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "  PURECOMP:PURE\n  VANLAAR:V\n");
}

// --- the library ---------------------------------------------------------------------------------

TEST_F(ExportFilesTest, LibraryHasWhatThereIsOfItsTexts) {
  library_->SetDescriptionAndVersion("Some words", "1.5");
  library_->SetMemo("one\ntwo\n\nthree");
  EXPECT_TRUE(Maint().ExportLibrary(Out().c_str()));
  EXPECT_EQ(
      Body("lib.xml"),
      "<library>\n"
      "  <description>\n    Some words\n  </description>\n"
      "  <version>\n    1.5\n  </version>\n"
      "  <memo>\n    <![CDATA[ one\n            [ two\n            [ \n            [ three]]>\n"
      "  </memo>\n"
      "</library>\n");
}

TEST_F(ExportFilesTest, MemoOfOneLineAndOneThatEndsItsLine) {
  library_->SetMemo("one");
  EXPECT_TRUE(Maint().ExportLibrary(Out().c_str()));
  EXPECT_EQ(Body("lib.xml"), "<library>\n  <memo>\n    <![CDATA[ one]]>\n  </memo>\n</library>\n");
  library_->SetMemo("one\n");
  EXPECT_TRUE(Maint().ExportLibrary(Out().c_str()));
  EXPECT_EQ(Body("lib.xml"),
            "<library>\n  <memo>\n    <![CDATA[ one\n            [ ]]>\n  </memo>\n</library>\n");
}

TEST_F(ExportFilesTest, ComponentBanksStandFirst) {
  Maint().CreateBank("NRTL", "N", 0);
  Maint().CreateBank("PURECOMP", "P2", 0);
  Maint().CreateBank("PURECOMP", "P1", 0);
  Maint().CreateBank("ALPHA", "A", 0);
  EXPECT_TRUE(Maint().ExportLibrary(Out().c_str()));
  EXPECT_EQ(Body("lib.xml"),
            "<library>\n  <import file=\"Bank-PURECOMP-P1.xml\" />\n"
            "  <import file=\"Bank-PURECOMP-P2.xml\" />\n"
            "  <import file=\"Bank-ALPHA-A.xml\" />\n"
            "  <import file=\"Bank-NRTL-N.xml\" />\n</library>\n");
}

// --- banks ---------------------------------------------------------------------------------------

TEST_F(ExportFilesTest, BankHasItsMemo) {
  Maint().CreateBank("VANLAAR", "V", 0);
  Maint().SetBankMemo("VANLAAR", "V", "words");
  EXPECT_TRUE(Maint().ExportBank("VANLAAR", "V", Out().c_str()));
  EXPECT_EQ(
      Body("Bank-VANLAAR-V.xml"),
      "<bank type=\"VANLAAR\" name=\"V\">\n  <memo>\n    <![CDATA[ words]]>\n  </memo>\n</bank>\n");
}

TEST_F(ExportFilesTest, FormatIsToldWhereThereAreSeveral) {
  Maint().CreateBank("NRTL", "ONE", 1);
  Maint().CreateBank("NRTL", "TWO", 2);
  EXPECT_TRUE(Maint().ExportBank("NRTL", "ONE", Out("1.xml").c_str()));
  EXPECT_TRUE(Maint().ExportBank("NRTL", "TWO", Out("2.xml").c_str()));
  EXPECT_EQ(Body("1.xml"), "<bank type=\"NRTL\" name=\"ONE\" format=\"1\">\n</bank>\n");
  EXPECT_EQ(Body("2.xml"), "<bank type=\"NRTL\" name=\"TWO\" format=\"2\">\n</bank>\n");
}

TEST_F(ExportFilesTest, LaterFormatsAreLeftOutWhereTheFormatIsNotTold) {
  Maint().SetWriteFormat(false);
  Maint().CreateBank("NRTL", "ONE", 1);
  Maint().CreateBank("NRTL", "TWO", 2);
  Maint().SetLogLevel(1);
  ::testing::internal::CaptureStdout();
  EXPECT_TRUE(Maint().ExportLibrary(Out().c_str()));
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "  NRTL:ONE\n");
  EXPECT_EQ(Files(), (Names{"lib.xml", "Bank-NRTL-ONE.xml"}));
  EXPECT_EQ(Body("lib.xml"), "<library>\n  <import file=\"Bank-NRTL-ONE.xml\" />\n</library>\n");
  EXPECT_EQ(Body("Bank-NRTL-ONE.xml"), "<bank type=\"NRTL\" name=\"ONE\">\n</bank>\n");
  ::testing::internal::CaptureStdout();
  EXPECT_TRUE(Maint().ExportBank("NRTL", "TWO", Out("2.xml").c_str())) << "no failure";
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(Files().count("2.xml"), 0U);
}

}  // namespace
}  // namespace zel
