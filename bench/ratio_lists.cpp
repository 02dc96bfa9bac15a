// A list of many components, built from a library and read again, compared with just reading the
// file's lines and walking the bank.
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>

#include "bench/many_components.h"
#include "bench/ratio_cases.h"
#include "frame/platform/block_file.h"
#include "lists/comp_list.h"
#include "lists/comp_list_build.h"
#include "maint/lib_maint.h"
#include "zelaccess/PureComp.h"

namespace zel::bench {
namespace {

// All lines of the file, by the standard library.
std::uint64_t ReadLines(std::string const& path) {
  std::ifstream file(path);
  std::uint64_t rows = 0;
  for (std::string line; std::getline(file, line);) rows += !line.empty() && line[0] != ';';
  return rows;
}

std::uint64_t WalkManyComponents(LibFile& library) {
  LibMaint_i maint(&library);
  FaceRef<IZelBankDef> const bank(NewPureComp());
  std::int32_t key[10];
  std::uint64_t count = 0;
  maint.BeginItemWalk("PURECOMP", kManyBank);
  while (maint.NextItem(key, bank.Get())) ++count;
  return count;
}

}  // namespace

void CompareLists(RatioTable& table, std::filesystem::path const& folder) {
  std::string const path = (folder / "many.lb1").string();
  std::string const file = (folder / "many.lst").string();
  LibFile_i library(platform::SystemFileSystemWithoutSync(), accUpdate, path.c_str(), "many");
  if (library.CreateNew(libKind11) != openOk) throw std::runtime_error("cannot make the library");
  MakeManyComponents(library);
  CompList_i list;
  auto const build = [&](int) {
    return Time(kManyComponents, [&] {
      if (!list.GetBuilder()->BuildList(&library, kManyBank, file.c_str())) {
        throw std::runtime_error("no list");
      }
      return std::uint64_t{kManyComponents};
    });
  };
  table.Compare(
      {"list of 100k components built, per component", "walk of the bank",
       [&](int) { return Time(kManyComponents, [&] { return WalkManyComponents(library); }); },
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
                 Target::Figure(kNanosecondsPerByte)});
  library.CloseLibFile();
  for (std::string const& name : {path, path.substr(0, path.size() - 1) + "2", file}) {
    std::filesystem::remove(name);
  }
}

}  // namespace zel::bench
