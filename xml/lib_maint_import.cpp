// Imports of LibMaint.
#include "maint/document_stack.h"
#include "maint/lib_maint.h"
#include "xml/import.h"

namespace zel {

template <typename Run>
bool LibMaint_i::RunImport(Run const& run) {
  importCounts_ = {};
  if (library_ == nullptr) return false;
  DocumentsOfImport const documents;
  Import_i reader(*this);
  bool const good = run(reader);
  importCounts_ = reader.Counts();
  return good;
}

bool LibMaint_i::Import(char const* path, bool replaceExisting) {
  return RunImport([&](Import_i& reader) { return reader.Import(path, replaceExisting); });
}

bool LibMaint_i::ImportComponent(char const* path, char const* bankName, bool replaceExisting) {
  return RunImport(
      [&](Import_i& reader) { return reader.ImportComponent(path, bankName, replaceExisting); });
}

}  // namespace zel
