// Behaviour that can surprise a host, as the headers describe it.
#include <zelaccess/ZelAccess.h>

#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <sys/resource.h>

#include "host_fixture.h"

namespace {

class TrapsTest : public HostFolderTest {
 protected:
  bool Write(zel::LibMaint& maint, char const* bank, double aij, zel::Key& key) {
    vanLaar_->SetDoubleField("aij", &aij);
    return maint.WriteItem(vanLaar_.get(), bank, &key);
  }
  double Aij() {
    double aij = 0.0;
    vanLaar_->GetDoubleField("aij", &aij);
    return aij;
  }
  zel::Handle<zel::IZelBankDef> vanLaar_{zel::NewBank("VANLAAR")};
};

TEST(Casn, ZeroIsANumberInAnAssignment) {
  zel::casn number("7732-18-5");
  number = 0;
  EXPECT_EQ(static_cast<long>(number), 0);
  number = 7732185;
  EXPECT_STREQ(static_cast<char const*>(number), "7732-18-5");
  number = 7732185U;
  EXPECT_EQ(static_cast<long>(number), 7732185);
  number = 7732185LL;
  EXPECT_EQ(static_cast<long>(number), 7732185);
  number = nullptr;
  EXPECT_EQ(static_cast<long>(number), 0);
}

// A file that cannot grow, as on a full disk, when the library is deleted.
TEST_F(TrapsTest, FlushThatIsLostInTheEndLeavesATrace) {
  std::int32_t const before = zel::GetLostFlushes(nullptr, nullptr);
  zel::LibFile* library = NewLibrary("full.lb1").release();
  struct rlimit old {};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
  auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
  struct rlimit none = old;
  none.rlim_cur = 0;
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &none), 0);
  zel::LibFile::DelLibFile(library);
  ::setrlimit(RLIMIT_FSIZE, &old);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(library, nullptr);
  char path[260] = "";
  unsigned long address = 0;
  EXPECT_EQ(zel::GetLostFlushes(path, &address), before + 1);
  EXPECT_EQ(path, Path("full.lb1"));
  EXPECT_NE(address, 0UL);
}

TEST_F(TrapsTest, LibraryThatEndsWellLeavesNoTrace) {
  std::int32_t const before = zel::GetLostFlushes(nullptr, nullptr);
  NewLibrary("a.lb1").reset();
  EXPECT_EQ(zel::GetLostFlushes(nullptr, nullptr), before);
}

// As Key.h and LibMaint.h warn: a key that is used again can find the item of its earlier use.
TEST_F(TrapsTest, KeyUsedAgainKeepsTheWordsThatAreNotSet) {
  auto const library = NewLibrary("a.lb1");
  zel::Handle<zel::LibMaint> const maint(zel::LibMaint::NewLibMaint(library.get()));
  ASSERT_TRUE(maint->CreateBank("VANLAAR", "MINE", 0));
  zel::Handle<zel::Key> const key(zel::Key::NewKey());
  key->SetKey(1L, 2L);
  ASSERT_TRUE(Write(*maint, "MINE", 12.0, *key));
  key->SetKey(1L);
  ASSERT_TRUE(maint->ReadItem(vanLaar_.get(), "MINE", key.get()));
  EXPECT_EQ(Aij(), 12.0);
  zel::Handle<zel::Key> const fresh(zel::Key::NewKey());
  fresh->SetKey(1L);
  EXPECT_FALSE(maint->ReadItem(vanLaar_.get(), "MINE", fresh.get()));
}

// As Key.h says: only the low 32 bits of a number are used.
TEST_F(TrapsTest, NumberBeyond32BitsWraps) {
  auto const library = NewLibrary("a.lb1");
  zel::Handle<zel::LibMaint> const maint(zel::LibMaint::NewLibMaint(library.get()));
  ASSERT_TRUE(maint->CreateBank("VANLAAR", "MINE", 0));
  zel::Handle<zel::Key> const key(zel::Key::NewKey());
  key->SetKey(1L, 2L);
  ASSERT_TRUE(Write(*maint, "MINE", 12.0, *key));
  zel::Handle<zel::Key> const beyond(zel::Key::NewKey());
  beyond->SetKey(4294967297L, 2L);
  EXPECT_TRUE(maint->ReadItem(vanLaar_.get(), "MINE", beyond.get()));
}

// As LibMaint.h says: CreateBank refuses a name of nine characters, DeleteBank cuts it. Exports,
// lists and new libraries follow a link in their place; a text dump replaces it.
TEST_F(TrapsTest, WrittenFilesFollowSymbolicLinks) {
  auto library = NewLibrary("own.lb1");
  zel::Handle<zel::LibMaint> maint(zel::LibMaint::NewLibMaint(library.get()));
  ASSERT_TRUE(maint->CreateBank("PURECOMP", "A", 0));
  for (char const* const name : {"bank.xml", "list.txt", "new.lb1", "own.bnk"}) {
    std::string const target = Path(std::string("target of ") + name);
    std::ofstream(target) << "before";
    std::filesystem::create_symlink(target, Path(name));
  }
  auto const target = [&](std::string const& name) {
    std::ifstream written(Path("target of " + name), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(written), {});
  };
  EXPECT_TRUE(maint->ExportBank("PURECOMP", "A", Path("bank.xml").c_str()));
  EXPECT_NE(target("bank.xml").find("<bank"), std::string::npos);
  zel::Handle<zel::CompList> list(zel::CompList::NewCompList());
  EXPECT_TRUE(list->GetBuilder()->BuildList(library.get(), "A", Path("list.txt").c_str()));
  EXPECT_NE(target("list.txt"), "before");
  NewLibrary("new.lb1")->FlushLibFile();
  EXPECT_GT(target("new.lb1").size(), 1000U);
  for (char const* const name : {"bank.xml", "list.txt", "new.lb1"}) {
    EXPECT_TRUE(std::filesystem::is_symlink(Path(name))) << name;
  }
  maint->WriteTextDump(library.get());
  EXPECT_EQ(target("own.bnk"), "before");
  EXPECT_FALSE(std::filesystem::is_symlink(Path("own.bnk")));
}

TEST_F(TrapsTest, DeleteBankCutsNames) {
  auto const library = NewLibrary("a.lb1");
  zel::Handle<zel::LibMaint> const maint(zel::LibMaint::NewLibMaint(library.get()));
  ASSERT_TRUE(maint->CreateBank("VANLAAR", "LONGNAME", 0));
  EXPECT_FALSE(maint->CreateBank("VANLAAR", "LONGNAMES", 0));
  EXPECT_TRUE(maint->DeleteBank("VANLAAR", "LONGNAMES"));
  EXPECT_FALSE(maint->BankExists("VANLAAR", "LONGNAME"));
}

}  // namespace
