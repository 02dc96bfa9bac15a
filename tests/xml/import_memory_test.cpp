// The memory that an import takes: it does not grow with the document, in whatever order the items
// are.
#include <cstdlib>
#include <fstream>

#include "frame/platform/block_file.h"
#include "tests/frame/child.h"
#include "tests/support/process_memory.h"
#include "tests/support/sanitizers.h"
#include "tests/xml/import_fixture.h"
#include "zelaccess/Module.h"

namespace zel {
namespace {

constexpr std::int32_t kItems = 1'000'000;
constexpr std::int64_t kMostKilobytes = 64 * 1024;

// Imports the document in the folder ZEL_TEST_FOLDER into a new library on disk, without other work
// in the process, and compares the largest memory of the process with the bound.
int ImportAlone() {
  char const* const variable = std::getenv("ZEL_TEST_FOLDER");
  if (variable == nullptr) return test::kCannotRun;
  std::string const folder = variable;
  InitZelAccess();
  LibFile_i library(platform::SystemFileSystemWithoutSync(), accUpdate,
                    (folder + "/large.lb1").c_str(), "large");
  if (library.CreateNew(libKind11) != openOk) return test::kCannotRun;
  LibMaint_i maint(&library);
  if (!maint.Import((folder + "/large.xml").c_str(), false)) return test::kCannotRun;
  std::int32_t key[10];
  std::int32_t items = 0;
  std::int64_t const peak = test::ProcessMemory("VmHWM");
  maint.BeginItemWalk("NRTL", "LARGE");
  while (maint.NextItemKey(key)) ++items;
  maint.EndItemWalk();
  library.CloseLibFile();
  if (items != kItems) return test::kCannotRun;
  std::printf("peak %lld KB\n", static_cast<long long>(peak));
  return peak > 0 && peak <= kMostKilobytes ? test::kHeld : test::kFailed;
}

test::ProgramPart const importAlone("import_alone", ImportAlone);

class ImportMemoryTest : public test::TempFolderTest {
 protected:
  // Pairs by number, from a document of 56 MB that makes a library of more than 100 MB.
  template <typename Order>
  void ExpectWithinBound(Order const& order) {
    {
      std::ofstream document(Path("large.xml"));
      document << "<bank type='NRTL' name='LARGE'>\n";
      for (std::int32_t i = 0; i < kItems; ++i) {
        std::int64_t const pair = order(std::int64_t{i});
        document << "<item><keys>" << 10'000'000 + pair / 400 << ' ' << 20'000'000 + pair % 400
                 << "</keys><aij>" << pair % 1000 << "</aij></item>\n";
      }
      document << "</bank>\n";
    }
    test::ProgramResult const result =
        test::RunProgram("ZEL_TEST_PART=import_alone ZEL_TEST_FOLDER=" + Folder().string() + " " +
                         test::ThisProgram());
    EXPECT_EQ(result.status, test::kHeld) << result.output;
    auto const size = static_cast<double>(std::filesystem::file_size(Path("large.lb2")));
    EXPECT_GT(size, 1.5 * 1024 * kMostKilobytes) << "more than the process may hold";
  }
};

TEST_F(ImportMemoryTest, PeakIsBoundedForItemsInKeyOrder) {
  if (ZEL_ADDRESS_SANITIZER || ZEL_THREAD_SANITIZER) GTEST_SKIP() << "takes memory of its own";
  ExpectWithinBound([](std::int64_t i) { return i; });
}

TEST_F(ImportMemoryTest, PeakIsBoundedForItemsInAnyOrder) {
  if (ZEL_ADDRESS_SANITIZER || ZEL_THREAD_SANITIZER) GTEST_SKIP() << "takes memory of its own";
  ExpectWithinBound([](std::int64_t i) { return i * 7919 % kItems; });
}

}  // namespace
}  // namespace zel
