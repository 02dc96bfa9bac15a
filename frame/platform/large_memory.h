// Memory in large pieces, for data that are used and freed together.
#pragma once

#include <cstddef>
#include <memory>

namespace zel::platform {

// A piece of memory, not cleared. A piece of whole large pages gets such pages where the system has
// them: in memory that is written once, page faults take longer than the writing.
class LargeMemory {
 public:
  static constexpr std::size_t kPage = std::size_t{2} << 20;

  // Throws std::bad_alloc.
  explicit LargeMemory(std::size_t bytes);

  std::byte* Data() const noexcept { return data_.get(); }
  std::size_t Bytes() const noexcept { return data_.get_deleter().bytes; }

 private:
  struct Free {
    std::size_t bytes;
    void operator()(std::byte* data) const noexcept;
  };
  std::unique_ptr<std::byte, Free> data_;
};

}  // namespace zel::platform
