// Makes the libraries of the published documents with the public interface alone, to compare their
// bytes between machines.
//   published_libraries <folder for the libraries> <folder of the documents, from the root>
#include <zelaccess/ZelAccess.h>

#include <cstdio>
#include <string>

int main(int count, char** words) {
  if (count != 3) return 2;
  zel::InitZelAccess();
  for (char const* name : {"sample", "perry", "chemsep", "vdi", "poling", "crc", "nist"}) {
    std::string const path = std::string(words[1]) + "/" + name + ".lb1";
    std::string const document = std::string(words[2]) + "/" + name + ".xml";
    zel::openErrors reason;
    zel::Handle<zel::LibFile> library(
        zel::LibFile::NewLibFile(zel::libKind11, path.c_str(), reason));
    if (!library) {
      std::fprintf(stderr, "%s: cannot be created\n", path.c_str());
      return 1;
    }
    zel::Handle<zel::LibMaint> maint(zel::LibMaint::NewLibMaint(library.get()));
    if (!maint->Import(document.c_str(), false)) {
      std::fprintf(stderr, "%s: %s\n", document.c_str(), maint->GetLastErrorText());
      return 1;
    }
  }
}
