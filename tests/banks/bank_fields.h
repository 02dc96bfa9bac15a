// For tests: reads a bank's fields by name, and its typed face.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "zelaccess/Banks.h"

namespace zel::test {

template <typename Face>
class Typed {
 public:
  Typed(char const* type, ZelIid const& id) : bank_(NewBank(type)) {
    void* face = nullptr;
    EXPECT_EQ(bank_->QueryInterface(id, &face), kStatusOk);
    face_ = static_cast<Face*>(face);
    EXPECT_EQ(bank_->QueryInterface(IID_IZelBankIO, &face), kStatusOk);
    io_ = static_cast<IZelBankIO*>(face);
  }
  Typed(Typed const&) = delete;
  Typed& operator=(Typed const&) = delete;
  ~Typed() {
    io_->Release();
    face_->Release();
    EXPECT_EQ(bank_->Release(), 0);
  }

  Face* operator->() const { return face_; }
  IZelBankDef* Def() const { return bank_; }
  IZelBankIO* IO() const { return io_; }

 private:
  IZelBankDef* bank_;
  Face* face_ = nullptr;
  IZelBankIO* io_ = nullptr;
};

class Fields {
 public:
  explicit Fields(IZelBankDef* bank) : bank_(bank) {}

  std::vector<double> Reals(char const* name, std::size_t count) const {
    std::vector<double> values(count);
    EXPECT_EQ(bank_->GetDoubleField(name, values.data()), kStatusOk) << name;
    return values;
  }
  std::vector<std::int32_t> Ints(char const* name, std::size_t count) const {
    std::vector<std::int32_t> values(count);
    EXPECT_EQ(bank_->GetIntField(name, values.data()), kStatusOk) << name;
    return values;
  }
  std::string Text(char const* name) const {
    char text[64];
    EXPECT_EQ(bank_->GetStringField(name, text), kStatusOk) << name;
    return text;
  }

 private:
  IZelBankDef* bank_;
};

}  // namespace zel::test
