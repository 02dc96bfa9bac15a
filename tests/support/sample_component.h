// A pure component with data in every place of its record, and all its data as a text.
#pragma once

#include <string>

#include "zelaccess/PureComp.h"

namespace zel::test {

// A bank of type PURECOMP as the tests use it.
class ComponentBank {
 public:
  ComponentBank();
  ~ComponentBank() { pure_->Release(); }
  ComponentBank(ComponentBank const&) = delete;
  ComponentBank& operator=(ComponentBank const&) = delete;

  IZelPureComp* operator->() const noexcept { return pure_; }
  IZelPureComp* Get() const noexcept { return pure_; }
  IZelBankDef* Def() const noexcept { return def_; }
  IZelBankIO* Io() const noexcept { return io_; }

 private:
  IZelBankDef* def_;
  IZelBankIO* io_;
  IZelPureComp* pure_;
};

// Identity, with IDs "ID1"... `ids` of them, up to 12.
void SetIdentity(IZelPureComp* component, std::int32_t number, std::int32_t cas, char const* name,
                 int ids);

// Every constant, structure and correlation, codes, texts and phase.
void FillComponent(IZelPureComp* component);

// Everything that the interface returns, also completed and evaluated. Doubles are shown as their
// bytes: two texts are equal exactly when the components are.
std::string TextOf(IZelPureComp* component);

}  // namespace zel::test
