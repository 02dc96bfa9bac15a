// A bank found in the directory of a library, and how its records are laid out.
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

// The tree works on a copy of the bank's head, because the directory's node buffer, where the head
// lies, is loaded with other nodes while the tree lives. An object stays in its place: its tree
// points at its head.
class LocatedBank {
 public:
  using Head = std::array<std::int32_t, format::kHeadWords>;
  enum class Answer : std::uint8_t {
    kFound,
    kNoBank,
    kOtherKeyLength,    // the bank's keys have another number of words than those of the object
    kOtherRecordLength  // the object has no record format of the bank's length
  };

  LocatedBank() = default;
  LocatedBank(LocatedBank const&) = delete;
  LocatedBank& operator=(LocatedBank const&) = delete;

  // Finds the bank called `name`, of the type that `info` of the object `bank` says, and the format
  // of its records. The tree is open unless there is no bank.
  Answer Locate(LibFile_i& library, IZelBankIO* bank, BlockInfo const& info, char const* name) {
    std::int32_t const* entry = nullptr;
    if (!library.FindBank(info.type, name, entry, false)) return Answer::kNoBank;
    OpenTree(library, entry + format::kBankHead);
    return Fit(bank, info);
  }
  // Chooses the format in which `bank` has the records of the open tree; not kNoBank.
  Answer Fit(IZelBankIO* bank, BlockInfo const& info) {
    fileResident_ = info.fileResident != 0;
    format_ = {};
    if (tree_->Head().keyWords != info.keyWords) return Answer::kOtherKeyLength;
    format_ = FormatOf(bank, info, tree_->Head());
    return format_.format != 0 ? Answer::kFound : Answer::kOtherRecordLength;
  }
  // Opens a tree by its head, whatever its keys and records are.
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
  // The following need an open tree.
  BTree_i& Tree() noexcept { return *tree_; }
  Head const& HeadWords() const noexcept { return head_; }
  // Format 0 until one was chosen.
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
