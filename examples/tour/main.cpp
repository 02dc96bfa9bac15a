// A tour of the library: makes a component library from published data, closes it, opens it again
// for reading and prints what is in it.
//   tour <data folder> <folder for the library>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <fstream>

#include "tour.h"

namespace {

long SizeOf(std::string const& path) {
  std::ifstream file(path, std::ios::binary | std::ios::ate);
  return file ? static_cast<long>(file.tellg()) : 0;
}

char const* Reason(zel::openErrors error) {
  switch (error) {
    case zel::openNotFound: return "not found";
    case zel::openDenied: return "access denied, or another program holds the library";
    case zel::openNotLibrary: return "not a library";
    case zel::openSiblingMissing: return "its second file is missing";
    case zel::openPasswordNeeded:
    case zel::openBadPassword: return "password";
    default: return "cannot be opened";
  }
}

tour::Library Checked(zel::LibFile* library, std::string const& path, zel::openErrors error) {
  if (library == nullptr) throw std::runtime_error(path + ": " + Reason(error));
  return tour::Library(library);
}

tour::Library NewLibrary(std::string const& path, std::string const& name) {
  std::remove(path.c_str());
  std::remove((path.substr(0, path.size() - 1) + "2").c_str());
  zel::openErrors error = zel::openFailed;
  return Checked(zel::LibFile::NewLibFile(zel::libKind11, path.c_str(), name.c_str(), error), path,
                 error);
}

void PrintCitations(std::string const& path, tour::Codes cited) {
  tour::References const references(path);
  std::sort(cited.begin(), cited.end());
  cited.erase(std::unique(cited.begin(), cited.end()), cited.end());
  std::printf("\nPrinted sources:\n\n");
  for (int const code : cited) std::printf("  %3d  %s\n", code, references.Citation(code).c_str());
}

void Write(std::string const& data, std::string const& path, tour::Components const& components) {
  std::printf("Writing %s\n\n", path.c_str());
  tour::Library const library = NewLibrary(path, "Sample library");
  library->SetDescriptionAndVersion("Published pair and group parameters", "1");
  tour::WriteBanks(library.get(), data, components);
}

void Read(std::string const& data, std::string const& path, tour::Components const& components) {
  zel::openErrors error = zel::openFailed;
  tour::Library const library =
      Checked(zel::LibFile::OpenLibFile(zel::accRead, path.c_str(), "", error), path, error);
  char description[101];
  char version[13];
  library->GetDescriptionAndVersion(description, version);
  std::string const second = path.substr(0, path.size() - 1) + "2";
  std::printf("\nOpened again for reading: \"%s\", version %s\n", description, version);
  std::printf("First file %ld bytes, second file %ld bytes\n", SizeOf(path), SizeOf(second));
  tour::Codes cited;
  tour::PrintBanks(library.get());
  tour::PrintPairs(library.get(), components, cited);
  tour::PrintComponents(library.get(), components, cited);
  tour::PrintGroups(library.get(), components, cited);
  tour::PrintSmallTree(library.get());
  PrintCitations(data + "/references.txt", cited);
}

// One library per source of pure component data, then a search over all of them.
void PureComponents(std::string const& data, std::string const& folder,
                    tour::Components const& components) {
  std::printf("\nPure components: one library per source, searched in this order\n\n");
  auto const pathOf = [&](tour::Source const& source) {
    return folder + "/" + tour::LowerCase(source.name) + ".lb1";
  };
  for (tour::Source const& source : tour::kSources) {
    tour::Library const library = NewLibrary(pathOf(source), source.name);
    library->SetDescriptionAndVersion(source.what, "1");
    tour::WriteSource(library.get(), source, data, components);
  }
  std::vector<tour::Library> libraries;
  for (tour::Source const& source : tour::kSources) {
    zel::openErrors error = zel::openFailed;
    std::string const path = pathOf(source);
    libraries.push_back(
        Checked(zel::LibFile::OpenLibFile(zel::accRead, path.c_str(), source.name, "", error), path,
                error));
  }
  tour::Codes cited;
  tour::Merged merged(libraries);
  tour::PrintConstants(merged, components, cited);
  tour::PrintCurves(merged, components, cited);
  tour::PrintBoilingPoints(merged, components);
  PrintCitations(data + "/references.txt", cited);
}

void Run(std::string const& data, std::string const& folder) {
  std::string const path = folder + "/sample.lb1";
  zel::InitZelAccess();
  tour::Components const components(tour::Table(data + "/components.txt"));
  Write(data, path, components);
  Read(data, path, components);
  PureComponents(data, folder, components);
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
