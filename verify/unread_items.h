// Receives what the walks of a check cannot read, in place of the host's sink for items.
#pragma once

#include <functional>
#include <utility>

#include "store/lib_file.h"
#include "zelaccess/Verify.h"

namespace zel {

class UnreadItems final : public ZelFindingSink {
 public:
  using Take = std::function<void(char const* id, char const* place, char const* text)>;

  UnreadItems(LibFile_i& library, Take take)
      : library_(library), before_(library.ItemFindings()), take_(std::move(take)) {
    library_.SetItemFindings(this);
  }
  UnreadItems(UnreadItems const&) = delete;
  UnreadItems& operator=(UnreadItems const&) = delete;
  ~UnreadItems() { library_.SetItemFindings(before_); }

  void Found(zelFindings, char const* id, char const* place, char const* text) override {
    take_(id, place, text);
  }

 private:
  LibFile_i& library_;
  ZelFindingSink* before_;
  Take take_;
};

}  // namespace zel
