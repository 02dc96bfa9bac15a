// List files and filters. The first line of the input is the filter, the rest the file; all six
// orders are walked, both ways, through it.
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "lists/comp_list.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  static std::string const path =
      (std::filesystem::temp_directory_path() / ("zel_list_" + std::to_string(::getpid()) + ".lst"))
          .string();
  std::string const input(reinterpret_cast<char const*>(data), size);
  std::size_t const end = input.find('\n');
  std::string const filter = input.substr(0, end);
  std::ofstream(path, std::ios::binary) << (end == std::string::npos ? "" : input.substr(end + 1));
  zel::CompList_i list;
  list.ReadList(path.c_str());
  list.SetRange(1.0, 1e3);
  list.SetFilter(filter.c_str());
  char name[41], id[13], formula[21], cas[21];
  double nbp, mw;
  for (std::int32_t key = -1; key <= 6; ++key) {
    for (std::int32_t descending : {0, 1}) {
      list.SetSort(key, descending);
      while (list.GetNext(name, id, formula, cas, nbp, mw)) {
      }
    }
  }
  std::filesystem::remove(path);
  return 0;
}
