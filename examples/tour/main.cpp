// A tour of the library: makes a component library from published data, closes it, opens it again
// for reading and prints what is in it.
//   tour <data folder> <folder for the library>
#include <cstdio>
#include <exception>
#include <fstream>

#include "tour.h"

namespace {

long SizeOf(std::string const& path) {
  std::ifstream file(path, std::ios::binary | std::ios::ate);
  return file ? static_cast<long>(file.tellg()) : 0;
}

void Run(std::string const& data, std::string const& folder) {
  std::string const path = folder + "/sample.lb1";
  std::remove(path.c_str());
  std::remove((folder + "/sample.lb2").c_str());
  tour::Components const components(tour::Table(data + "/components.txt"));

  std::printf("Writing %s\n\n", path.c_str());
  zel::openErrors error = zel::openFailed;
  tour::Library library(
      zel::LibFile::NewLibFile(zel::libKind11, path.c_str(), "Sample library", error));
  if (!library)
    throw std::runtime_error("cannot create " + path + ", reason " + std::to_string(error));
  library->SetDescriptionAndVersion("Published pair and group parameters", "1");
  tour::WriteBanks(library.get(), data, components);
  library->CloseLibFile();

  library.reset(zel::LibFile::OpenLibFile(zel::accRead, path.c_str(), "", error));
  if (!library)
    throw std::runtime_error("cannot open " + path + ", reason " + std::to_string(error));
  std::printf("\nOpened again for reading: sample.lb1 %ld bytes, sample.lb2 %ld bytes\n",
              SizeOf(path), SizeOf(folder + "/sample.lb2"));
  tour::PrintBanks(library.get());
  tour::PrintPairs(library.get(), components);
  tour::PrintGroups(library.get());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: tour <data folder> <folder for the library>\n");
    return 2;
  }
  try {
    Run(argv[1], argv[2]);
    return 0;
  } catch (unsigned long address) {
    std::fprintf(stderr, "tour: the library is damaged or full, at block address %lu\n", address);
  } catch (std::exception const& problem) {
    std::fprintf(stderr, "tour: %s\n", problem.what());
  }
  return 1;
}
