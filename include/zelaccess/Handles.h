// Handles that end with their scope, for hosts: what a New... or Open... function gives is given
// back with the matching Del... function or with Release.
//
//   zel::Handle<zel::LibMaint> maint(zel::LibMaint::NewLibMaint(library.get()));
//   zel::BankFace<zel::IZelPureComp> component("PURECOMP", zel::IID_IZelPureComp);
//   if (component && maint->ReadItem(component.Def(), "SAMPLE", key.get())) ...
#ifndef ZELACCESS_HANDLES_H
#define ZELACCESS_HANDLES_H

#include <memory>

#include "zelaccess/Banks.h"
#include "zelaccess/CompList.h"
#include "zelaccess/Key.h"
#include "zelaccess/LibFile.h"
#include "zelaccess/LibMaint.h"
#include "zelaccess/LibSearch.h"

namespace zel {

struct HandleCloser {
  void operator()(LibFile* library) const { LibFile::DelLibFile(library); }
  void operator()(LibMaint* maint) const { LibMaint::DelLibMaint(maint); }
  void operator()(LibSearch* search) const { LibSearch::DelLibSearch(search); }
  void operator()(CompList* list) const { CompList::DelCompList(list); }
  void operator()(Key* key) const { Key::DelKey(key); }
  void operator()(IZelBankDef* bank) const { bank->Release(); }
};

// Of one of the classes above.
template <typename T>
using Handle = std::unique_ptr<T, HandleCloser>;

// A bank of one type together with the face of its own interface. Empty when there is no such type,
// or the type does not have the face.
template <typename Face>
class BankFace {
 public:
  BankFace(char const* type, ZelIid const& id) : bank_(NewBank(type)) {
    void* face = nullptr;
    if (bank_ && bank_->QueryInterface(id, &face) == kStatusOk) face_ = static_cast<Face*>(face);
  }
  BankFace(BankFace const&) = delete;
  BankFace& operator=(BankFace const&) = delete;
  ~BankFace() {
    if (face_ != nullptr) face_->Release();
  }

  explicit operator bool() const { return face_ != nullptr; }
  Face* operator->() const { return face_; }
  IZelBankDef* Def() const { return bank_.get(); }

 private:
  Handle<IZelBankDef> bank_;
  Face* face_ = nullptr;
};

}  // namespace zel

#endif  // ZELACCESS_HANDLES_H
