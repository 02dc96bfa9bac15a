// Handles of the library that end with their scope.
#pragma once

#include <zelaccess/ZelAccess.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace tour {

struct Closer {
  void operator()(zel::LibFile* library) const { zel::LibFile::DelLibFile(library); }
  void operator()(zel::LibMaint* maint) const { zel::LibMaint::DelLibMaint(maint); }
  void operator()(zel::LibSearch* search) const { zel::LibSearch::DelLibSearch(search); }
  void operator()(zel::Key* key) const { zel::Key::DelKey(key); }
  void operator()(zel::IZelBankDef* bank) const { bank->Release(); }
};
using Library = std::unique_ptr<zel::LibFile, Closer>;
using Maint = std::unique_ptr<zel::LibMaint, Closer>;
using Search = std::unique_ptr<zel::LibSearch, Closer>;
using Key = std::unique_ptr<zel::Key, Closer>;
using BankHandle = std::unique_ptr<zel::IZelBankDef, Closer>;

// A bank of one type together with the face of its own interface.
template <typename Face>
class Bank {
 public:
  Bank(char const* type, zel::ZelIid const& id) : bank_(zel::NewBank(type)) {
    void* face = nullptr;
    if (!bank_ || bank_->QueryInterface(id, &face) != zel::kStatusOk) {
      throw std::runtime_error(std::string("no bank type ") + type);
    }
    face_ = static_cast<Face*>(face);
  }
  Bank(Bank const&) = delete;
  Bank& operator=(Bank const&) = delete;
  ~Bank() { face_->Release(); }

  Face* operator->() const { return face_; }
  zel::IZelBankDef* Def() const { return bank_.get(); }

 private:
  BankHandle bank_;
  Face* face_;
};

}  // namespace tour
