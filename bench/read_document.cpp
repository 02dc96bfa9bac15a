// Reads a document in one of the ways that the benchmarks compare, and prints the largest memory of
// this process in KB.
//   bench_read_document <reader> <document> <folder> <items>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <string>
#include <string_view>

#include "bench/document_readers.h"

namespace {

// VmHWM, in KB: other figures of the system include the process that started this one.
long PeakMemory() {
  constexpr std::string_view kRow = "VmHWM:";
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(kRow)) return std::strtol(line.c_str() + kRow.size(), nullptr, 10);
  }
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  using namespace zel::bench;
  if (count != 5) return 2;
  std::size_t const items = std::strtoul(arguments[4], nullptr, 10);
  try {
    for (DocumentReader const& reader : DocumentReaders()) {
      if (reader.name != std::string_view(arguments[1])) continue;
      if (reader.read(arguments[2], arguments[3], items) != items) return 1;
      std::printf("%ld\n", PeakMemory());
      return 0;
    }
  } catch (std::exception const& failure) {
    std::fprintf(stderr, "bench_read_document: %s\n", failure.what());
  }
  return 1;
}
