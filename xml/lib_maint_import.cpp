// Imports of LibMaint.
#include "maint/document_stack.h"
#include "maint/lib_maint.h"
#include "xml/import.h"

namespace zel {

namespace {

// While an import runs, the memory that the library takes does not grow with the document.
class BoundedMemory {
 public:
  explicit BoundedMemory(BlockStore& store) : store_(store) { store_.BoundMemory(true); }
  BoundedMemory(BoundedMemory const&) = delete;
  BoundedMemory& operator=(BoundedMemory const&) = delete;
  ~BoundedMemory() { store_.BoundMemory(false); }

 private:
  BlockStore& store_;
};

// Keeps what an import changes, so that it can be taken back. Without a progress nothing can cancel
// the import, and nothing is kept.
class Cancellable {
 public:
  explicit Cancellable(LibFile_i& library) : library_(library) {
    if (library_.Progress() != nullptr && library_.GetBankTree() != nullptr) library_.BeginUndo();
  }
  Cancellable(Cancellable const&) = delete;
  Cancellable& operator=(Cancellable const&) = delete;
  ~Cancellable() { library_.EndUndo(); }

 private:
  LibFile_i& library_;
};

}  // namespace

template <typename Run>
bool LibMaint_i::RunImport(Run const& run) {
  importCounts_ = {};
  if (library_ == nullptr) return false;
  DocumentsOfImport const documents;
  BoundedMemory const memory(library_->Store());
  Cancellable const cancellable(*library_);
  Import_i reader(*this);
  bool const good = run(reader);
  importCounts_ = reader.Counts();
  if (reader.IsCancelled()) {
    DropTree();
    library_->TakeBack();
    return false;
  }
  reader.EndProgress();
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
