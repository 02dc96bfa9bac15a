// A reference to one face of a bank, released at the end of its scope.
#pragma once

#include "zelaccess/Banks.h"

namespace zel {

template <typename Face>
class FaceRef {
 public:
  FaceRef() = default;
  // Takes over a reference that the caller owns.
  explicit FaceRef(Face* face) noexcept : face_(face) {}
  FaceRef(FaceRef&& other) noexcept : face_(other.face_) { other.face_ = nullptr; }
  FaceRef& operator=(FaceRef&&) = delete;
  ~FaceRef() {
    if (face_ != nullptr) face_->Release();
  }

  // The face with the given identifier of a bank; empty when the bank has none.
  template <typename Other>
  static FaceRef Of(Other* bank, ZelIid const& id) {
    void* face = nullptr;
    if (bank == nullptr || bank->QueryInterface(id, &face) != kStatusOk) return FaceRef();
    return FaceRef(static_cast<Face*>(face));
  }

  Face* operator->() const noexcept { return face_; }
  Face* Get() const noexcept { return face_; }
  explicit operator bool() const noexcept { return face_ != nullptr; }

 private:
  Face* face_ = nullptr;
};

}  // namespace zel
