// Images of tree nodes, reused, so that a warm search allocates none.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include "frame/platform/large_memory.h"
#include "store/format.h"

namespace zel {

using NodeImage = std::array<std::int32_t, format::kNodeWords>;

// The free list of one library. A NodeBuffer takes an image when constructed and returns it when
// destroyed, so the pool must outlive its buffers. Images are not cleared. Threads may share it.
class NodePool {
 public:
  std::unique_ptr<NodeImage> Take() {
    std::lock_guard const turn(busy_);
    if (free_.empty()) return std::unique_ptr<NodeImage>(new NodeImage);
    std::unique_ptr<NodeImage> image = std::move(free_.back());
    free_.pop_back();
    return image;
  }
  void GiveBack(std::unique_ptr<NodeImage> image) noexcept {
    std::lock_guard const turn(busy_);
    if (free_.size() == kKept) return;
    if (free_.capacity() < kKept) {
      try {
        free_.reserve(kKept);
      } catch (std::bad_alloc const&) {
        return;  // the image is then just freed
      }
    }
    free_.push_back(std::move(image));
  }

 private:
  static constexpr std::size_t kKept = 64;
  std::mutex busy_;
  std::vector<std::unique_ptr<NodeImage>> free_;
};

// One image, on loan from the pool for the life of this object.
class NodeBuffer {
 public:
  explicit NodeBuffer(NodePool& pool) : pool_(&pool), image_(pool.Take()) {}
  NodeBuffer(NodeBuffer const&) = delete;
  NodeBuffer& operator=(NodeBuffer const&) = delete;
  ~NodeBuffer() {
    if (image_) pool_->GiveBack(std::move(image_));
  }

  std::int32_t* Words() noexcept { return image_->data(); }

 private:
  NodePool* pool_;
  std::unique_ptr<NodeImage> image_;
};

// Many images of nodes that are freed together.
class NodeSlabs {
 public:
  // Images of `words` words each, at most those of a node.
  explicit NodeSlabs(std::int32_t words) noexcept : words_(static_cast<std::size_t>(words)) {}

  // The image is not cleared.
  std::int32_t* Take() {
    if (left_ < words_) AddSlab();
    std::int32_t* const image = next_;
    next_ += words_;
    left_ -= words_;
    return image;
  }
  std::int32_t ImageWords() const noexcept { return static_cast<std::int32_t>(words_); }

 private:
  void AddSlab();

  std::size_t words_;
  std::vector<platform::LargeMemory> slabs_;
  std::int32_t* next_ = nullptr;
  std::size_t left_ = 0;  // words of the last slab
};

}  // namespace zel
