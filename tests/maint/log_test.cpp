// The log of maintenance runs, and the stack of documents whose top it shows.
#include <gtest/gtest.h>

#include <string>

#include "frame/platform/system.h"
#include "maint/document_stack.h"
#include "maint/maint_log.h"

namespace zel {
namespace {

class LogTest : public ::testing::Test {
 protected:
  LogTest() { Documents().Clear(); }
  ~LogTest() override { Documents().Clear(); }

  template <typename Call>
  std::string Output(Call const& call) {
    ::testing::internal::CaptureStdout();
    call();
    return ::testing::internal::GetCapturedStdout();
  }
  std::string Error(std::string_view message, bool verdict) {
    return Output(
        [&] { EXPECT_EQ(log_.ReportError(message), verdict ? Verdict::kGoOn : Verdict::kStop); });
  }

  MaintLog log_;
};

TEST_F(LogTest, SilentErrorCountsAndStops) {
  EXPECT_EQ(Error("bad", false), "");
  EXPECT_TRUE(log_.HasErrors());
  EXPECT_EQ(log_.ErrorCount(), 1);
  EXPECT_STREQ(log_.LastErrorText(), "bad");
}

TEST_F(LogTest, LoudErrorIsALineAndGoesOn) {
  Documents().Push("/data/Bank-WILSON-MINE.xml");
  for (std::int32_t level : {1, 2, -1, 7}) {
    log_.ClearLog();
    log_.SetLevel(level);
    log_.SetItemLabel("Item \"00000007:00000008\"");
    EXPECT_EQ(Error("Item already exists in this bank", true),
              "*** Bank-WILSON-MINE.xml : error : Item \"00000007:00000008\" - Item already exists "
              "in this bank\n");
  }
  EXPECT_STREQ(log_.LastErrorText(),
               "Item \"00000007:00000008\" - Item already exists in this bank");
}

TEST_F(LogTest, EmptyLabelHasNoDash) {
  log_.SetLevel(1);
  EXPECT_EQ(Error("bad", true), "***  : error : bad\n");
}

TEST_F(LogTest, EmptyMessageTakesThePendingTextOnce) {
  log_.SetItemLabel("L");
  log_.SetPendingText("the reason");
  Error("", false);
  EXPECT_STREQ(log_.LastErrorText(), "L - the reason");
  Error("", false);
  EXPECT_STREQ(log_.LastErrorText(), "L - ") << "used up";
}

TEST_F(LogTest, EveryErrorUsesThePendingTextUp) {
  log_.SetPendingText("the reason");
  Error("another", false);
  EXPECT_STREQ(log_.LastErrorText(), "another");
  EXPECT_EQ(log_.PendingText(), "");
}

TEST_F(LogTest, WarningLeavesFlagAndLastError) {
  log_.SetLevel(1);
  Error("bad", true);
  log_.SetItemLabel("L");
  log_.SetPendingText("p");
  EXPECT_EQ(Output([&] { log_.ReportWarning("odd"); }), "***  : warning : L - odd\n");
  EXPECT_STREQ(log_.LastErrorText(), "bad");
  EXPECT_EQ(log_.WarningCount(), 1);
  EXPECT_EQ(log_.PendingText(), "p");
  log_.ClearLog();
  EXPECT_EQ(Output([&] { log_.ReportWarning("odd"); }), "***  : warning : odd\n");
  EXPECT_FALSE(log_.HasErrors());
  EXPECT_EQ(log_.LastErrorText(), nullptr);
  log_.SetLevel(0);
  EXPECT_EQ(Output([&] { log_.ReportWarning("odd"); }), "");
  EXPECT_EQ(log_.WarningCount(), 2) << "counted even when silent";
}

TEST_F(LogTest, ClearTextsKeepsFlagAndCounts) {
  log_.SetItemLabel("L");
  log_.SetPendingText("p");
  Error("bad", false);
  log_.SetPendingText("p");
  log_.ClearTexts();
  EXPECT_TRUE(log_.HasErrors());
  EXPECT_EQ(log_.ErrorCount(), 1);
  EXPECT_STREQ(log_.LastErrorText(), "");
  EXPECT_EQ(log_.PendingText(), "");
  Error("next", false);
  EXPECT_STREQ(log_.LastErrorText(), "next");
}

TEST_F(LogTest, ClearLogStartsARun) {
  log_.SetItemLabel("L");
  Error("bad", false);
  log_.ReportWarning("odd");
  log_.ClearLog();
  EXPECT_FALSE(log_.HasErrors());
  EXPECT_EQ(log_.ErrorCount(), 0);
  EXPECT_EQ(log_.WarningCount(), 0);
  EXPECT_EQ(log_.LastErrorText(), nullptr);
}

TEST_F(LogTest, ProgressOfBanksByLevel) {
  auto const progress = [&](char const* type) {
    return Output([&] { log_.ShowBankProgress(type, "MINE"); });
  };
  EXPECT_EQ(progress("NRTL"), "");
  log_.SetLevel(1);
  EXPECT_EQ(progress("NRTL"), "  NRTL:MINE\n");
  log_.SetLevel(2);
  EXPECT_EQ(progress("NRTL"), "      NRTL:MINE\n");
  EXPECT_EQ(progress("PURECOMP"), "  PURECOMP:MINE\n");
}

TEST_F(LogTest, DocumentsAreSeenFromTheOneOnTop) {
  EXPECT_EQ(Documents().TopFile(), "");
  EXPECT_EQ(Documents().Push("/a/b.c/doc.x.xml"), "/a/b.c/doc.x.xml");
  EXPECT_EQ(Documents().TopFile(), "doc.x.xml");
  EXPECT_EQ(Documents().Push("../other"), "/a/other");
  EXPECT_EQ(Documents().TopFile(), "other");
  EXPECT_EQ(Documents().Push("sub\\last.xml"), "/a/sub/last.xml");
  Documents().Pop();
  EXPECT_EQ(Documents().TopFile(), "other");
  Documents().Pop();
  Documents().Pop();
  EXPECT_EQ(Documents().TopFile(), "");
  Documents().Pop();  // one too many
  EXPECT_EQ(Documents().Push("x.xml"), platform::WorkingFolder() + "/x.xml");
}

TEST_F(LogTest, PathsHaveAtMost259Characters) {
  std::string const most = "/" + std::string(258, 'a');
  EXPECT_EQ(Documents().Push(most), most);
  EXPECT_EQ(Documents().Push(most + "a"), "");
  EXPECT_EQ(Documents().TopFile(), "");
  Documents().Pop();
  EXPECT_EQ(Documents().TopFile(), most.substr(1));
}

}  // namespace
}  // namespace zel
