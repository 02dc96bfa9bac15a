// The progress of checks, and checks that are cancelled.
#include <algorithm>

#include "tests/verify/data_check_fixture.h"
#include "zelaccess/Progress.h"
#include "zelaccess/Verify.h"

namespace zel::test {
namespace {

// Records the shares, and cancels at one of the calls.
struct Follower final : ZelProgress {
  bool OnProgress(double share) noexcept override {
    shares.push_back(share);
    return shares.size() != cancelAt;
  }
  std::vector<double> shares;
  std::size_t cancelAt = 0;  // counted from 1
};

struct IdSink final : ZelFindingSink {
  void Found(zelFindings, char const* id, char const*, char const*) override {
    ids += std::string(id) + " ";
  }
  std::string ids;
};

class CheckProgressTest : public DataCheckTest {
 protected:
  static constexpr int kComponents = 300;

  // A library of 300 components.
  std::unique_ptr<LibFile_i> MakeLarge(char const* path) {
    auto library = Make(path);
    for (int i = 0; i < kComponents; ++i) {
      GoodComponent component;
      component.number = 21'000'000 + i;
      component.cas = 0;
      component.id = "C" + std::to_string(i);
      Add(*library, component);
    }
    return library;
  }
  static void ExpectWhole(std::vector<double> const& shares) {
    ASSERT_GE(shares.size(), 6U);
    EXPECT_EQ(shares.front(), 0.0);
    EXPECT_EQ(shares.back(), 1.0);
    EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
    EXPECT_GT(shares[shares.size() - 2], 0.7) << "the estimate is near the truth";
  }
};

TEST_F(CheckProgressTest, OfTheStructure) {
  auto const library = MakeLarge("/l.lb1");
  library->FlushLibFile();
  Follower follower;
  SetProgress(library.get(), &follower);
  IdSink sink;
  EXPECT_TRUE(VerifyLibrary(library.get(), sink));
  ExpectWhole(follower.shares);
  EXPECT_EQ(sink.ids.find("cancelled"), sink.ids.npos);
  for (std::size_t call = 1; call < follower.shares.size(); ++call) {
    Follower canceller;
    canceller.cancelAt = call;
    SetProgress(library.get(), &canceller);
    IdSink cancelled;
    EXPECT_FALSE(VerifyLibrary(library.get(), cancelled)) << call;
    EXPECT_EQ(canceller.shares.size(), call);
    EXPECT_EQ(cancelled.ids.substr(cancelled.ids.rfind(' ', cancelled.ids.size() - 2) + 1),
              "cancelled ")
        << call;
  }
}

TEST_F(CheckProgressTest, OfTheData) {
  auto const library = MakeLarge("/l.lb1");
  Follower follower;
  SetProgress(library.get(), &follower);
  DataSink sink;
  CheckLibraryData({library.get(), "own"}, {}, sink);
  ExpectWhole(follower.shares);
  Follower canceller;
  canceller.cancelAt = 3;
  SetProgress(library.get(), &canceller);
  DataSink cancelled;
  EXPECT_FALSE(CheckLibraryData({library.get(), "own"}, {}, cancelled));
  EXPECT_EQ(canceller.shares.size(), 3U);
  ASSERT_FALSE(cancelled.lines.empty());
  EXPECT_EQ(
      cancelled.lines.back(),
      "note cancelled | own : []  |  = - ()  at - | - to - () |  | the library: the check was "
      "cancelled");
}

TEST_F(CheckProgressTest, OfTheComparison) {
  auto const one = MakeLarge("/one.lb1");
  auto const two = MakeLarge("/two.lb1");
  Follower follower;
  SetProgress(two.get(), &follower);
  ZelCheckedLibrary const both[] = {{one.get(), "one"}, {two.get(), "two"}};
  DataSink sink;
  CompareLibraryData(both, 2, {}, sink);
  ExpectWhole(follower.shares);
  Follower canceller;
  canceller.cancelAt = follower.shares.size() - 1;
  SetProgress(two.get(), &canceller);
  DataSink cancelled;
  EXPECT_FALSE(CompareLibraryData(both, 2, {}, cancelled));
  EXPECT_NE(cancelled.ids.find("cancelled"), cancelled.ids.npos);
}

}  // namespace
}  // namespace zel::test
