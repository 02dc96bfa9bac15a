/// \file
/// Handles that end with their scope, for hosts: what a New... or Open... function returns is ended
/// with the matching Del... function or with Release.
///
///     zel::Handle<zel::LibMaint> maint(zel::LibMaint::NewLibMaint(library.get()));
///     zel::BankFace<zel::IZelPureComp> component("PURECOMP", zel::IID_IZelPureComp);
///     if (component && maint->ReadItem(component.Def(), "SAMPLE", key.get())) ...
#ifndef ZELACCESS_HANDLES_H
#define ZELACCESS_HANDLES_H

#include <memory>

#include "zelaccess/Banks.h"
#include "zelaccess/Columns.h"
#include "zelaccess/CompList.h"
#include "zelaccess/Key.h"
#include "zelaccess/LibFile.h"
#include "zelaccess/LibMaint.h"
#include "zelaccess/LibSearch.h"

namespace zel {

/// Ends what a Handle holds. A std::unique_ptr never calls it with null.
struct HandleCloser {
  /// Closes and ends a library.
  /// \param library  the library
  void operator()(LibFile* library) const { LibFile::DelLibFile(library); }
  /// Ends a LibMaint.
  /// \param maint  the object
  void operator()(LibMaint* maint) const { LibMaint::DelLibMaint(maint); }
  /// Ends a search.
  /// \param search  the search
  void operator()(LibSearch* search) const { LibSearch::DelLibSearch(search); }
  /// Ends a list.
  /// \param list  the list
  void operator()(CompList* list) const { CompList::DelCompList(list); }
  /// Ends a key.
  /// \param key  the key
  void operator()(Key* key) const { Key::DelKey(key); }
  /// Ends a reader of columns.
  /// \param reader  the reader
  void operator()(ColumnReader* reader) const { ColumnReader::DelColumnReader(reader); }
  /// Releases a bank.
  /// \param bank  the bank; must not be null
  void operator()(IZelBankDef* bank) const { bank->Release(); }
};

/// Owns an object of one of the classes that HandleCloser ends.
template <typename T>
using Handle = std::unique_ptr<T, HandleCloser>;

/// Owns a bank of one type together with its own interface.
/// \tparam Face  the interface, IZelNrtl for example
template <typename Face>
class BankFace {
 public:
  /// Makes a bank. The object is empty when there is no such type, or the type does not have the
  /// interface, or memory is short.
  /// \param type  type keyword in any case of letters; null makes an empty object
  /// \param id    identifier of `Face`
  BankFace(char const* type, ZelIid const& id) : bank_(NewBank(type)) {
    void* face = nullptr;
    if (bank_ && bank_->QueryInterface(id, &face) == kStatusOk) face_ = static_cast<Face*>(face);
  }
  /// Not copied.
  BankFace(BankFace const&) = delete;
  /// Not copied.
  BankFace& operator=(BankFace const&) = delete;
  /// Releases the bank.
  ~BankFace() {
    if (face_ != nullptr) face_->Release();
  }

  /// Returns whether there is a bank with the interface.
  explicit operator bool() const { return face_ != nullptr; }
  /// Returns the interface.
  /// \return owned by this object; null when empty
  Face* operator->() const { return face_; }
  /// Returns the bank, for LibMaint and LibSearch.
  /// \return owned by this object; null when there is no such type
  IZelBankDef* Def() const { return bank_.get(); }

 private:
  Handle<IZelBankDef> bank_;
  Face* face_ = nullptr;
};

}  // namespace zel

#endif  // ZELACCESS_HANDLES_H
