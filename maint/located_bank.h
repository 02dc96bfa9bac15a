// A bank found in the directory of a library, and the layout of its records.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "maint/block_info.h"
#include "store/btree.h"
#include "store/format.h"
#include "store/lib_file.h"

namespace zel {

// The tree works on a copy of the bank's head, because the directory's node buffer, which holds the
// head, is loaded with other nodes while the tree exists. An object cannot be moved, since its tree
// points to its head.
class LocatedBank {
 public:
  using Head = std::array<std::int32_t, format::kHeadWords>;
  enum class Answer : std::uint8_t {
    kFound,
    kNoBank,
    kOtherKeyLength,    // the keys of the bank and those of the object differ in length
    kOtherRecordLength  // no record format of the object has the bank's record length
  };

  LocatedBank() = default;
  LocatedBank(LocatedBank const&) = delete;
  LocatedBank& operator=(LocatedBank const&) = delete;

  // Finds the bank called `name` of the type in `info`, which describes the object `bank`, and the
  // format of its records. The tree is open unless the answer is kNoBank.
  Answer Locate(LibFile_i& library, IZelBankIO* bank, BlockInfo const& info, char const* name) {
    std::int32_t const* entry = nullptr;
    if (!library.FindBank(info.type, name, entry, false)) return Answer::kNoBank;
    OpenTree(library, entry + format::kBankHead);
    return Fit(bank, info);
  }
  // Selects the record format of `bank` that matches the open tree; never returns kNoBank.
  Answer Fit(IZelBankIO* bank, BlockInfo const& info) {
    fileResident_ = info.fileResident != 0;
    format_ = {};
    if (tree_->Head().keyWords != info.keyWords) return Answer::kOtherKeyLength;
    format_ = FormatOf(bank, info, tree_->Head());
    return format_.format != 0 ? Answer::kFound : Answer::kOtherRecordLength;
  }
  // Opens the tree of a head without checking its keys and records.
  void OpenTree(LibFile_i& library, std::int32_t const* head) {
    CloseTree();
    std::copy_n(head, head_.size(), head_.begin());
    tree_.emplace(library.Store(), head_.data());
  }
  void CloseTree() noexcept {
    tree_.reset();
    format_ = {};
    fileResident_ = false;
  }

  bool IsOpen() const noexcept { return tree_.has_value(); }
  // The following functions need an open tree.
  BTree_i& Tree() noexcept { return *tree_; }
  Head const& HeadWords() const noexcept { return head_; }
  // Format 0 until one was selected.
  RecordFormat const& Format() const noexcept { return format_; }
  bool IsFileResident() const noexcept { return fileResident_; }

  // Reads the record of an entry, given by its data words, into `bank`.
  ZelStatus Read(LibFile_i* library, IZelBankIO* bank, std::int32_t const* data) const {
    return fileResident_ ? bank->ReadFromFile(data, library)
                         : bank->ReadBlock(data, format_.format);
  }

 private:
  Head head_{};
  std::optional<BTree_i> tree_;
  RecordFormat format_;
  bool fileResident_ = false;
};

}  // namespace zel
