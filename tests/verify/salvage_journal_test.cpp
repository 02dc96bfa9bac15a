// A damaged library next to which a journal completes a flush that was cut off.
#include <gtest/gtest.h>

#include "maint/lib_maint.h"
#include "store/key.h"
#include "tests/support/failing_file_system.h"
#include "tests/support/memory_file_system.h"
#include "verify/salvage/salvage.h"
#include "zelaccess/Banks.h"
#include "zelaccess/Handles.h"
#include "zelaccess/Module.h"

namespace zel {
namespace {

using test::FailingFileSystem;
using test::MemoryFileSystem;

constexpr char kPath[] = "/a.lb1";

bool WritePair(LibFile_i& library, long second, double value) {
  LibMaint_i maint(&library);
  Handle<IZelBankDef> const bank(NewBank("VANLAAR"));
  Handle<Key> const key(Key::NewKey());
  key->SetKey(1L, second);
  bank->SetDoubleField("aij", &value);
  return maint.WriteItem(bank.get(), "OWN", key.get());
}

double ReadPair(LibFile_i& library, long second) {
  LibMaint_i maint(&library);
  Handle<IZelBankDef> const bank(NewBank("VANLAAR"));
  Handle<Key> const key(Key::NewKey());
  key->SetKey(1L, second);
  double value = -1.0;
  if (maint.ReadItem(bank.get(), "OWN", key.get())) bank->GetDoubleField("aij", &value);
  return value;
}

TEST(SalvageJournalTest, FlushThatWasCutOffCountsAsComplete) {
  InitZelAccess();
  MemoryFileSystem files;
  {
    LibFile_i library(files, accUpdate, kPath, "a");
    ASSERT_EQ(library.CreateNew(libKind11), openOk);
    ASSERT_TRUE(LibMaint_i(&library).CreateBank("VANLAAR", "OWN", 0));
    ASSERT_TRUE(WritePair(library, 2, 1.5));
    library.CloseLibFile();
  }
  auto const first = files.Contents(kPath);
  auto const second = files.Contents("/a.lb2");
  int withJournal = 0;
  for (int n = 1; n < 60; ++n) {
    files.Contents(kPath) = first;
    files.Contents("/a.lb2") = second;
    files.Remove("/a.lb1.journal");
    FailingFileSystem failing(files);
    LibFile_i library(failing, accUpdate, kPath, "a");
    library.Store().SetWriteMode(writesHeld);
    ASSERT_EQ(library.OpenExisting({true, ""}, nullptr), openOk);
    ASSERT_TRUE(WritePair(library, 2, 2.5) && WritePair(library, 3, 3.5));
    failing.FailAt(n, true);
    try {
      library.FlushLibFile();
    } catch (unsigned long) {
    }
    library.Abandon();
    LibFile_i reader(files, accRead, kPath, "a");
    ASSERT_EQ(reader.OpenExisting({true, ""}, nullptr), openOk);
    double const expected = ReadPair(reader, 2);
    withJournal += reader.Store().LastClose()->isCompleted ? 1 : 0;
    reader.CloseLibFile();
    MemoryFileSystem saved;
    LibFile_i rescued(saved, accUpdate, kPath, "r");
    ASSERT_EQ(rescued.CreateNew(libKind11), openOk);
    ZelSalvageCounts counts;
    ASSERT_EQ(SalvageFiles(files, kPath, "", &rescued, nullptr, counts), openOk);
    EXPECT_EQ(ReadPair(rescued, 2), expected) << n;
    EXPECT_EQ(ReadPair(rescued, 3), expected == 2.5 ? 3.5 : -1.0) << n;
  }
  EXPECT_GT(withJournal, 0);
}

}  // namespace
}  // namespace zel
