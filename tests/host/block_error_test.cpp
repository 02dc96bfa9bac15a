// Block errors as exceptions that hold place and reason.
#include <zelaccess/BlockError.h>
#include <zelaccess/LibFile_p.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <type_traits>

#include "host_fixture.h"

namespace {

static_assert(std::is_base_of_v<std::exception, zel::BlockError>);
static_assert(std::is_nothrow_copy_constructible_v<zel::BlockError>);

constexpr unsigned long kForeign = 120000003;  // of a library of kind 12

class BlockErrorTest : public HostFolderTest {};

zel::BlockError ErrorOf(std::function<void()> const& work) {
  try {
    zel::WithBlockErrors(work);
  } catch (zel::BlockError const& error) {
    return error;
  }
  ADD_FAILURE() << "no block error";
  return zel::BlockError(0);
}

TEST_F(BlockErrorTest, IsCaughtAsAnyOtherException) {
  auto const library = NewLibrary("a.lb1");
  auto& inner = dynamic_cast<zel::LibFile_p&>(*library);
  std::int32_t word = 0;
  std::string text;
  try {
    zel::WithBlockErrors([&] { inner.ReadBlock(kForeign, 1, &word); });
  } catch (std::exception const& error) {
    text = error.what();
  }
  EXPECT_EQ(text, Path("a.lb1") +
                      ": block 120000003 is not a block of this library; the library is damaged");
}

TEST_F(BlockErrorTest, WriteToALibraryOpenForReadingNamesItsFile) {
  NewLibrary("a.lb1").reset();
  auto const library = Open(zel::accRead, "a.lb1");
  auto& inner = dynamic_cast<zel::LibFile_p&>(*library);
  std::int32_t address = 112000001;
  std::int32_t const word = 1;
  zel::BlockError const error = ErrorOf([&] { inner.WriteBlock(address, 1, &word, 0); });
  EXPECT_EQ(error.Address(), 112000001UL);
  EXPECT_EQ(error.File(), Path("a.lb2"));
  EXPECT_STREQ(error.Reason(), "cannot be written; the library is not open for update");
}

TEST_F(BlockErrorTest, WithoutABlockThereIsNoAddressInTheText) {
  auto const library = NewLibrary("a.lb1");
  zel::Handle<zel::LibMaint> const maint(zel::LibMaint::NewLibMaint(library.get()));
  zel::BlockError const error = ErrorOf([&] { maint->DeleteBank("VANLAAR", "MINE"); });
  EXPECT_EQ(error.Address(), zel::kNoBlockAddress);
  EXPECT_EQ(error.what(), Path("a.lb1") + ": nothing can be deleted from an empty tree");
}

TEST_F(BlockErrorTest, AnAddressFromElsewhereHasAGeneralReason) {
  auto const library = NewLibrary("a.lb1");
  zel::Handle<zel::LibMaint> const maint(zel::LibMaint::NewLibMaint(library.get()));
  ErrorOf([&] { maint->DeleteBank("VANLAAR", "MINE"); });
  zel::BlockError const error(112000007);
  EXPECT_STREQ(error.File(), "");
  EXPECT_STREQ(error.what(),
               "block 112000007 cannot be read or written; the library is damaged or the disk is "
               "full");
}

TEST_F(BlockErrorTest, IsRememberedByThread) {
  auto const library = NewLibrary("a.lb1");
  auto& inner = dynamic_cast<zel::LibFile_p&>(*library);
  std::int32_t word = 0;
  ErrorOf([&] { inner.ReadBlock(kForeign, 1, &word); });
  std::string elsewhere;
  std::thread([&] { elsewhere = zel::BlockError(kForeign).File(); }).join();
  EXPECT_EQ(elsewhere, "");
  EXPECT_EQ(zel::BlockError(kForeign).File(), Path("a.lb1"));
}

TEST(WithBlockErrors, GivesTheResultAndLetsOtherExceptionsPass) {
  EXPECT_EQ(zel::WithBlockErrors([] { return 7; }), 7);
  int number = 0;
  auto const refer = [&]() -> int& { return number; };
  zel::WithBlockErrors(refer) = 3;
  EXPECT_EQ(number, 3);
  EXPECT_THROW(zel::WithBlockErrors([] { throw std::out_of_range("x"); }), std::out_of_range);
}

}  // namespace
