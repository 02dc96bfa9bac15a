// What held-back and marked writes cost beside plain ones: items written with WriteItem, with a
// flush after every so many of them and a close, in files of the system, which are synced. The ways
// take turns; printed is the time of the fastest round of each and its ratio to plain writes.
//   held_writes_cost [<folder> [<rounds>]]
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iterator>
#include <stdexcept>
#include <string>

#include "maint/face_ref.h"
#include "maint/lib_maint.h"
#include "store/key.h"
#include "zelaccess/Handles.h"
#include "zelaccess/OpenLibrary.h"

namespace {

using namespace zel;
namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr int kItems = 20'000;  // in the library before

void Check(bool good) {
  if (!good) throw std::runtime_error("failed");
}

void Write(LibMaint_i& maint, IZelBankDef* bank, int number) {
  Key_i key;
  std::int32_t const value = number % 9999;
  key.SetKey(static_cast<long>(number % 997 + 1), static_cast<long>(number + 2000));
  bank->SetIntField("refCode", &value);
  Check(maint.WriteItem(bank, "COST", &key));
}

// Returns seconds for a session of items that are all new, written at random places.
double Session(fs::path const& path, zelWriteModes writes, int items, int perFlush) {
  FaceRef<IZelBankDef> const bank(NewBank("PRO"));
  ZelOpenOptions options;
  options.mode = accUpdate;
  options.writes = writes;
  openErrors error = openFailed;
  auto const start = Clock::now();
  Handle<LibFile> library(OpenLibrary(path.c_str(), options, error));
  Check(error == openOk);
  {
    LibMaint_i maint(library.get());
    for (int i = 0; i < items; ++i) {
      Write(maint, bank.Get(), kItems + i * 7919 % items);
      if ((i + 1) % perFlush == 0) library->FlushLibFile();
    }
  }
  library->CloseLibFile();
  return std::chrono::duration<double>(Clock::now() - start).count();
}

void Run(fs::path const& folder, int rounds) {
  fs::path const base = folder / "base.lb1";
  {
    openErrors error = openFailed;
    Handle<LibFile> const library(LibFile::NewLibFile(libKind11, base.c_str(), error));
    Check(error == openOk);
    FaceRef<IZelBankDef> const bank(NewBank("PRO"));
    LibMaint_i maint(library.get());
    Check(maint.CreateBank("PRO", "COST", 1));
    for (int i = 0; i < kItems; ++i) Write(maint, bank.Get(), i);
  }
  struct {
    int items;
    int perFlush;
  } const kCases[] = {{100, 1},     {1000, 10},     {1000, 100},
                      {5000, 1000}, {20'000, 1000}, {20'000, 20'000}};
  std::printf("%8s %10s %12s %12s %12s %8s %8s\n", "items", "per flush", "plain ms", "marked ms",
              "held ms", "marked", "held");
  for (auto const& one : kCases) {
    double best[3] = {1e9, 1e9, 1e9};
    for (int round = 0; round < rounds; ++round) {
      for (int const mode : {0, 1, 2}) {
        for (char const* ending : {"1", "2"}) {
          fs::copy_file(folder / (std::string("base.lb") + ending),
                        folder / (std::string("cost.lb") + ending),
                        fs::copy_options::overwrite_existing);
        }
        double const seconds =
            Session(folder / "cost.lb1", static_cast<zelWriteModes>(mode), one.items, one.perFlush);
        best[mode] = std::min(best[mode], seconds);
      }
    }
    std::printf("%8d %10d %12.2f %12.2f %12.2f %8.2f %8.2f\n", one.items, one.perFlush,
                1e3 * best[0], 1e3 * best[1], 1e3 * best[2], best[1] / best[0], best[2] / best[0]);
  }
}

}  // namespace

int main(int argc, char** argv) {
  fs::path const folder =
      fs::path(argc > 1 ? argv[1] : fs::temp_directory_path().c_str()) / "zel_held_writes_cost";
  int const rounds = argc > 2 ? std::atoi(argv[2]) : 5;
  int status = 0;
  try {
    fs::remove_all(folder);
    fs::create_directories(folder);
    Run(folder, rounds);
  } catch (std::exception const& error) {
    std::fprintf(stderr, "%s\n", error.what());
    status = 1;
  }
  fs::remove_all(folder);
  return status;
}
