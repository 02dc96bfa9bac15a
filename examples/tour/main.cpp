// A tour of the library: makes component libraries from interchange documents of published data,
// closes them, opens them again for reading, prints what is in them and exports documents.
//   tour <data folder> <folder for the library>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
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

// A second bank of a type, under another name. With the flag set, a node holds at most 4 entries,
// so that a few items make a tree of several nodes.
void ImportSmallBank(zel::LibFile* library, std::string const& path) {
  zel::SetDeleteTestFlag(true);
  tour::ImportDocument(library, path);
  zel::SetDeleteTestFlag(false);
}

void Write(std::string const& documents, std::string const& path) {
  std::printf("Making %s from %s/sample.xml\n\n", path.c_str(), documents.c_str());
  tour::Library const library = NewLibrary(path, "Sample library");
  tour::ImportDocument(library.get(), documents + "/sample.xml");
  ImportSmallBank(library.get(), documents + "/alkanes.xml");
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

// Exports documents from the library, and makes a library from them.
void RoundTrip(std::string const& path, std::string const& folder) {
  zel::openErrors error = zel::openFailed;
  tour::Library const library =
      Checked(zel::LibFile::OpenLibFile(zel::accRead, path.c_str(), "", error), path, error);
  tour::Library const second = NewLibrary(folder + "/second.lb1", "Sample library");
  tour::ExportAndReadBack(library.get(), second.get(), folder);
}

// One library per source of pure component data, then a search over all of them.
void PureComponents(std::string const& data, std::string const& documents,
                    std::string const& folder, tour::Components const& components) {
  std::printf("\nPure components: one library per source, searched in this order\n\n");
  auto const pathOf = [&](tour::Source const& source) {
    return folder + "/" + tour::LowerCase(source.name) + ".lb1";
  };
  for (tour::Source const& source : tour::kSources) {
    tour::Library const library = NewLibrary(pathOf(source), source.name);
    tour::ImportDocument(library.get(), documents + "/" + tour::LowerCase(source.name) + ".xml");
  }
  std::vector<tour::Library> libraries;
  for (tour::Source const& source : tour::kSources) {
    zel::openErrors error = zel::openFailed;
    std::string const path = pathOf(source);
    libraries.push_back(
        Checked(zel::LibFile::OpenLibFile(zel::accRead, path.c_str(), source.name, "", error), path,
                error));
  }
  std::printf("\n");
  for (std::size_t i = 0; i < libraries.size(); ++i) {
    tour::PrintSource(libraries[i].get(), tour::kSources[i]);
  }
  constexpr std::size_t kListed = 4;  // the source with most boiling points
  tour::PrintList(libraries[kListed].get(), tour::kSources[kListed].name, folder + "/picker.lst");
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
  // A relative path would be resolved against the folder of the document that was read last.
  std::string const documents = std::filesystem::absolute(data + "/xml").string();
  Write(documents, path);
  Read(data, path, components);
  RoundTrip(path, folder);
  PureComponents(data, documents, folder, components);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: tour <data folder> <folder for the library>\n");
    return 2;
  }
  try {
    zel::WithBlockErrors([&] { Run(argv[1], argv[2]); });
    return 0;
  } catch (std::exception const& problem) {
    std::fprintf(stderr, "tour: %s\n", problem.what());
  }
  return 1;
}
