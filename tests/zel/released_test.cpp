// Libraries that released versions of the library wrote, in tests/released/<version>/, each with
// the document that its version made of it. They are read, and can be changed, as they are.
#include "tests/zel/zel_fixture.h"

namespace zel::test {
namespace {

namespace fs = std::filesystem;

// Calls `use(name, document)` for each library, a copy of which is in the folder.
class ReleasedTest : public ZelTest {
 protected:
  template <typename Use>
  void ForEachLibrary(Use const& use) {
    int libraries = 0;
    for (auto const& file : fs::recursive_directory_iterator(ZEL_RELEASED)) {
      if (file.path().extension() != ".lb1") continue;
      std::string const name = file.path().stem().string();
      SCOPED_TRACE(file.path().parent_path().filename().string() + "/" + name);
      fs::path second = file.path();
      for (fs::path const& one : {file.path(), second.replace_extension(".lb2")}) {
        fs::copy_file(one, Folder() / one.filename(), fs::copy_options::overwrite_existing);
      }
      fs::path document = file.path();
      use(name, FileText(document.replace_extension(".xml")));
      ++libraries;
    }
    EXPECT_GE(libraries, 2);
  }
};

TEST_F(ReleasedTest, HoldWhatTheirVersionExported) {
  ForEachLibrary([&](std::string const& name, std::string const& document) {
    std::string const before = FileText(Folder() / (name + ".lb2"));
    EXPECT_EQ(Good("export " + name + ".lb1 -o -"), document);
    Good("check " + name + ".lb1 --structure");
    EXPECT_EQ(FileText(Folder() / (name + ".lb2")), before);
  });
}

TEST_F(ReleasedTest, CanBeChanged) {
  ForEachLibrary([&](std::string const& name, std::string const& document) {
    std::string const library = name + ".lb1";
    Good("set " + library + " --description other");
    EXPECT_NE(Good("export " + library + " -o -"), document);
    Good("undo " + library);
    Good("copy sample.lb1 " + library + " --bank RACKETT --replace");
    Good("check " + library + " --structure");
    Good("undo " + library);
    EXPECT_EQ(Good("export " + library + " -o -"), document);
  });
}

}  // namespace
}  // namespace zel::test
