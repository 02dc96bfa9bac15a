// Interchange documents. The input is the text of one, read into a new library as a document of
// banks and as a component, continuing after errors, checked and unchecked. Ends the program when
// that takes more than a second of processor time for each 100 KB.
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "maint/document_stack.h"
#include "maint/lib_maint.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/time_limit.h"
#include "zelaccess/Module.h"

namespace {

// The document of this process. The log lines of the imports are discarded.
std::string const& DocumentPath() {
  static std::string const path = [] {
    if (std::freopen("/dev/null", "w", stdout) == nullptr) std::abort();
    zel::InitZelAccess();
    return (std::filesystem::temp_directory_path() /
            ("zel_document_" + std::to_string(::getpid()) + ".xml"))
        .string();
  }();
  return path;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  std::string const& path = DocumentPath();
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<char const*>(data), static_cast<std::streamsize>(size));
  zel::test::MemoryFileSystem files;
  zel::LibFile_i library(files, zel::accUpdate, "/fuzz.lb1", "fuzz");
  library.CreateNew(zel::libKind11);
  zel::LibMaint_i maint(&library);
  maint.SetLogLevel(1);
  for (zel::zelImportChecks const checks : {zel::importChecked, zel::importUnchecked}) {
    zel::test::TimeLimit const limit(size);
    maint.SetImportChecks(checks);
    maint.Import(path.c_str(), false);
    maint.ImportComponent(path.c_str(), "FUZZ", true);
    if (limit.Passed()) std::abort();
  }
  zel::Documents().Clear();
  std::filesystem::remove(path);
  return 0;
}
