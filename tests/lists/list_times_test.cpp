// The times that a builder reports: seconds of wall clock time.
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>
#include <utility>

#include "lists/comp_list.h"
#include "maint/lib_maint.h"
#include "store/key.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/sample_component.h"
#include "zelaccess/CompList_p.h"

namespace zel {
namespace {

// Files in memory whose reads are slow once this is switched on.
class SlowFileSystem final : public platform::FileSystem {
 public:
  static constexpr auto kPause = std::chrono::milliseconds(2);

  bool Exists(std::string const& path) override { return real_.Exists(path); }
  platform::OpenedFile Open(std::string const& path, platform::OpenMode mode) override {
    platform::OpenedFile opened = real_.Open(path, mode);
    if (opened.file) opened.file = std::make_unique<File>(*this, std::move(opened.file));
    return opened;
  }
  void BeSlow() { slow_ = true; }
  int Pauses() const { return pauses_; }

 private:
  class File final : public platform::BlockFile {
   public:
    File(SlowFileSystem& system, std::unique_ptr<platform::BlockFile> real)
        : system_(system), real_(std::move(real)) {}

    std::int64_t ReadAt(std::uint64_t offset, void* to, std::size_t count) override {
      system_.Pause();
      return real_->ReadAt(offset, to, count);
    }
    std::int64_t WriteAt(std::uint64_t offset, void const* from, std::size_t count) override {
      return real_->WriteAt(offset, from, count);
    }
    std::byte const* View(std::uint64_t, std::size_t) const noexcept override { return nullptr; }
    std::uint64_t Size() const noexcept override { return real_->Size(); }
    bool Flush() override { return real_->Flush(); }

   private:
    SlowFileSystem& system_;
    std::unique_ptr<platform::BlockFile> real_;
  };

  void Pause() {
    if (!slow_) return;
    ++pauses_;
    std::this_thread::sleep_for(kPause);
  }

  test::MemoryFileSystem real_;
  bool slow_ = false;
  int pauses_ = 0;
};

TEST(ListTimes, AreSecondsOfTheClockOnTheWall) {
  using Seconds = std::chrono::duration<double>;
  constexpr std::int32_t kComponents = 20;
  SlowFileSystem files;
  LibFile_i library(files, accUpdate, "/l.lb1", "Mine");
  ASSERT_EQ(library.CreateNew(libKind11), openOk);
  LibMaint_i maint(&library);
  ASSERT_TRUE(maint.CreateBank("PURECOMP", "PURE", 0));
  for (std::int32_t i = 1; i <= kComponents; ++i) {
    test::ComponentBank component;
    char const ids[12][9] = {{'C', static_cast<char>('A' + i)}};
    component->SetIdentity(i, 0, 0, ids, "Name", "CH4", 0);
    Key_i key;
    key.SetKey(static_cast<long>(i));
    ASSERT_TRUE(maint.WriteItem(component.Def(), "PURE", &key));
  }
  CompList_i list;
  auto& builder = dynamic_cast<CompListBuild_p&>(*list.GetBuilder());
  double total = -1.0, sort = -1.0, order = -1.0;
  builder.GetTimes(total, sort, order);
  EXPECT_EQ(total, 0.0) << "nothing was built yet";
  EXPECT_EQ(sort, 0.0);
  EXPECT_EQ(order, 0.0);

  files.BeSlow();
  auto const start = std::chrono::steady_clock::now();
  ASSERT_TRUE(builder.BuildList(&library, "PURE", ""));
  double const elapsed = Seconds(std::chrono::steady_clock::now() - start).count();
  builder.GetTimes(total, sort, order);
  EXPECT_EQ(builder.CountOrders(), kComponents);
  ASSERT_GE(files.Pauses(), kComponents);
  EXPECT_GE(total, files.Pauses() * Seconds(SlowFileSystem::kPause).count());
  EXPECT_GT(sort, 0.0);
  EXPECT_GT(order, 0.0);
  EXPECT_LE(total + sort + order, elapsed);
}

}  // namespace
}  // namespace zel
