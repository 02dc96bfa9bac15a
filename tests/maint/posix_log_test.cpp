// How lines of the log are written.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "maint/document_stack.h"
#include "maint/maint_log.h"

namespace zel {
namespace {

class PosixLogTest : public ::testing::Test {
 protected:
  PosixLogTest() { Documents().Clear(); }
  ~PosixLogTest() override { Documents().Clear(); }

  MaintLog log_;
};

// Each line is written with one call, so that lines of other writers are never mixed into it; when
// it is flushed is up to the host. Tested in a separate process, whose standard output shows each
// write separately.
TEST_F(PosixLogTest, LineIsOneWriteAndFlushingIsTheHosts) {
  log_.SetLevel(1);
  log_.SetItemLabel("Item \"00000007:00000008\"");
  auto const run = [&] {
    int ends[2];
    if (::pipe2(ends, O_DIRECT | O_NONBLOCK) != 0) std::_Exit(2);
    std::fflush(stdout);
    ::dup2(ends[1], STDOUT_FILENO);
    std::setvbuf(stdout, nullptr, _IOFBF, 1 << 16);
    char text[4096];
    auto const next = [&] {
      ssize_t const count = ::read(ends[0], text, sizeof text);
      return std::string(text, count > 0 ? static_cast<std::size_t>(count) : 0);
    };
    log_.ReportError("held back");
    if (!next().empty()) std::_Exit(3);
    std::fflush(stdout);
    if (next().find("held back\n") == std::string::npos) std::_Exit(4);
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    log_.ReportError("bad");
    if (next() != "***  : error : Item \"00000007:00000008\" - bad\n") std::_Exit(5);
    log_.ReportWarning("odd");
    if (next() != "***  : warning : Item \"00000007:00000008\" - odd\n") std::_Exit(6);
    log_.ShowBankProgress("NRTL", "MINE");
    if (next() != "  NRTL:MINE\n") std::_Exit(7);
    std::_Exit(0);
  };
  EXPECT_EXIT(run(), ::testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace zel
