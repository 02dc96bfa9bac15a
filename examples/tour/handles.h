// Handles of the library under the names that the tour uses.
#pragma once

#include <zelaccess/ZelAccess.h>

#include <stdexcept>
#include <string>

namespace tour {

using Library = zel::Handle<zel::LibFile>;
using Maint = zel::Handle<zel::LibMaint>;
using Search = zel::Handle<zel::LibSearch>;
using Key = zel::Handle<zel::Key>;
using List = zel::Handle<zel::CompList>;
using BankHandle = zel::Handle<zel::IZelBankDef>;

// A bank with its own face, which must exist.
template <typename Face>
class Bank : public zel::BankFace<Face> {
 public:
  Bank(char const* type, zel::ZelIid const& id) : zel::BankFace<Face>(type, id) {
    if (!*this) throw std::runtime_error(std::string("no bank type ") + type);
  }
};

}  // namespace tour
