// Images of tree nodes, reused, so that a warm search allocates none.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "store/format.h"

namespace zel {

using NodeImage = std::array<std::int32_t, format::kNodeWords>;

// The free list of one library. A NodeBuffer takes an image when constructed and returns it when
// destroyed, so the pool must outlive its buffers. Images are not cleared.
class NodePool {
 public:
  std::unique_ptr<NodeImage> Take() {
    if (free_.empty()) return std::unique_ptr<NodeImage>(new NodeImage);
    std::unique_ptr<NodeImage> image = std::move(free_.back());
    free_.pop_back();
    return image;
  }
  void GiveBack(std::unique_ptr<NodeImage> image) noexcept {
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

// Many images that are freed together.
class NodeSlabs {
 public:
  // Not cleared.
  NodeImage* Take() {
    if (used_ == kImages) {
      slabs_.emplace_back(new NodeImage[kImages]);
      used_ = 0;
    }
    return &slabs_.back()[used_++];
  }

 private:
  static constexpr std::size_t kImages = 16;
  std::vector<std::unique_ptr<NodeImage[]>> slabs_;
  std::size_t used_ = kImages;  // of the last slab
};

}  // namespace zel
