// A list of many components, built from a library and read again, beside the bare reading of the
// file's lines and the walk of its bank.
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>

#include "bench/ratio_cases.h"
#include "frame/ascii.h"
#include "frame/platform/block_file.h"
#include "lists/comp_list.h"
#include "lists/comp_list_build.h"
#include "maint/lib_maint.h"
#include "store/key.h"
#include "zelaccess/PureComp.h"

namespace zel::bench {
namespace {

constexpr std::int32_t kComponents = 100'000;
constexpr std::int32_t kFirst = 10'000'000;
constexpr char kBank[] = "MANY";

void MakeComponents(LibFile& library) {
  LibMaint_i maint(&library);
  maint.CreateBank("PURECOMP", kBank, 0);
  Held<IZelBankDef> const bank(NewPureComp());
  auto const component = Held<IZelPureComp>::Of(bank.Get(), IID_IZelPureComp);
  Key_i key;
  for (std::int32_t i = 0; i < kComponents; ++i) {
    char ids[12][9] = {};
    CopyText("C" + std::to_string(i), ids[0], sizeof ids[0]);
    CopyText("D" + std::to_string(i), ids[1], sizeof ids[1]);
    bank->Clear();
    std::string const name =
        std::to_string(i % 7) + "-Component " + std::to_string(i * 7919 % 99991);
    component->SetIdentity(kFirst + i, 0, 0, ids, name.c_str(), "C2H6O", 0);
    component->SetProperty(8, 200.0 + i % 400);
    component->SetProperty(0, 20.0 + i % 300);
    key.SetKey(static_cast<long>(kFirst + i));
    if (!maint.WriteItem(bank.Get(), kBank, &key)) throw std::runtime_error("no item");
  }
}

// All lines of the file, by the standard library.
std::uint64_t ReadLines(std::string const& path) {
  std::ifstream file(path);
  std::uint64_t rows = 0;
  for (std::string line; std::getline(file, line);) rows += !line.empty() && line[0] != ';';
  return rows;
}

std::uint64_t WalkComponents(LibFile& library) {
  LibMaint_i maint(&library);
  Held<IZelBankDef> const bank(NewPureComp());
  std::int32_t key[10];
  std::uint64_t count = 0;
  maint.BeginItemWalk("PURECOMP", kBank);
  while (maint.NextItem(key, bank.Get())) ++count;
  return count;
}

}  // namespace

void CompareLists(RatioTable& table, std::filesystem::path const& folder) {
  std::string const path = (folder / "many.lb1").string();
  std::string const file = (folder / "many.lst").string();
  LibFile_i library(platform::PosixFileSystemWithoutSync(), accUpdate, path.c_str(), "many");
  if (library.CreateNew(libKind11) != openOk) throw std::runtime_error("cannot make the library");
  MakeComponents(library);
  CompList_i list;
  auto const build = [&](int) {
    return Time(kComponents, [&] {
      if (!list.GetBuilder()->BuildList(&library, kBank, file.c_str())) {
        throw std::runtime_error("no list");
      }
      return std::uint64_t{kComponents};
    });
  };
  table.Compare({"list of 100k components built, per component", "walk of the bank",
                 [&](int) { return Time(kComponents, [&] { return WalkComponents(library); }); },
                 build, Target::None()});
  std::size_t const bytes = std::filesystem::file_size(file);
  constexpr double kNanosecondsPerByte = 10.0;  // 100 MB/s
  table.Compare({"list of 100k components read, per byte", "getline",
                 [&](int) { return Time(bytes, [&] { return ReadLines(file); }); },
                 [&](int) {
                   return Time(bytes, [&] {
                     list.ReadList(file.c_str());
                     return static_cast<std::uint64_t>(list.Entries().size());
                   });
                 },
                 Target::Nanoseconds(kNanosecondsPerByte)});
  library.CloseLibFile();
  for (std::string const& name : {path, path.substr(0, path.size() - 1) + "2", file}) {
    std::filesystem::remove(name);
  }
}

}  // namespace zel::bench
