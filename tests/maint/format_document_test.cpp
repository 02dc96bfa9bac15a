// Compares a library with the one that the document on the file format shows byte by byte.
#include <fstream>
#include <map>
#include <sstream>

#include "tests/maint/maint_fixture.h"

namespace zel {
namespace {

using FormatDocumentTest = test::MaintTest;
using Bytes = test::MemoryFileSystem::Bytes;

// Files by name, from lines "name, size bytes" and "offset  bytes  ; what they mean", in which all
// bytes not listed are 0.
std::map<std::string, Bytes> DocumentedFiles() {
  std::ifstream document(ZEL_DOCS "/file-format.md");
  std::map<std::string, Bytes> files;
  Bytes* file = nullptr;
  for (std::string line; std::getline(document, line);) {
    std::istringstream text(line);
    if (line.starts_with("sample.") && line.ends_with(" bytes")) {
      std::string name;
      std::size_t size = 0;
      std::getline(text, name, ',') >> size;
      file = &files[name];
      file->resize(size);
    } else if (line.starts_with("```")) {
      file = nullptr;
    } else if (file != nullptr && !line.empty()) {
      std::size_t offset = 0;
      text >> std::hex >> offset;
      for (unsigned byte = 0; text >> byte; ++offset) file->at(offset) = std::byte(byte);
    }
  }
  return files;
}

TEST_F(FormatDocumentTest, ShownLibraryHasTheBytesThatAreMade) {
  Library().SetDescriptionAndVersion("Sample", nullptr);
  ASSERT_TRUE(Maint().CreateBank("VANLAAR", "DEMO", 0));
  SetAij(1.25, -2.5);
  double const limits[] = {300.0, 400.0};
  vanLaar_->SetDoubleField("tMin", &limits[0]);
  vanLaar_->SetDoubleField("tMax", &limits[1]);
  key_.SetKey(1L, 2L);
  ASSERT_TRUE(Maint().WriteItem(vanLaar_.Get(), "DEMO", &key_));
  maint_.reset();
  Library().CloseLibFile();
  auto const shown = DocumentedFiles();
  ASSERT_EQ(shown.size(), 2U);
  for (auto const& [name, bytes] : shown) {
    Bytes const& made = files_.Contents(name == "sample.lb1" ? "/m.lb1" : "/m.lb2");
    ASSERT_EQ(made.size(), bytes.size()) << name;
    for (std::size_t i = 0; i < made.size(); ++i) {
      ASSERT_EQ(made[i], bytes[i]) << name << " at " << std::hex << i;
    }
  }
}

}  // namespace
}  // namespace zel
