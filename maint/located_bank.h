// A bank found in the directory of a library, and the layout of its records.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "maint/bank_memory.h"
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
  using Head = BankMemory::Head;
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
  // The same, but neither the directory nor the nodes of the last path are read again as long as
  // they cannot have changed: while nothing was written to the library by another object, its files
  // were not closed, and, in a library open for update, the directory was not searched. (A search
  // there also repairs the entry in the directory's node, which a later write includes.) An object
  // that writes calls Settle afterwards.
  Answer LocateAgain(LibFile_i& library, BankObject const& bank, char const* name);
  // To be called after a change of the library that this object made through its tree.
  void Settle(LibFile_i& library) noexcept { stamp_.changes = library.Store().Changes(); }
  // To be called after the caller found the bank in the directory again.
  void SettleDirectory(LibFile_i& library) noexcept {
    stamp_.directorySearches = library.DirectorySearches();
  }

  // Selects the record format of `bank` that matches the open tree; never returns kNoBank.
  Answer Fit(IZelBankIO* bank, BlockInfo const& info) {
    fileResident_ = info.fileResident != 0;
    format_ = {};
    fittedClass_ = nullptr;
    if (tree_->Head().keyWords != info.keyWords) return Answer::kOtherKeyLength;
    format_ = FormatOf(bank, info, tree_->Head());
    return format_.format != 0 ? Answer::kFound : Answer::kOtherRecordLength;
  }
  // The same, without the search for the format when the last object was of the same class.
  Answer FitAgain(BankObject const& bank) {
    if (IsFittedTo(bank)) return Answer::kFound;
    Answer const answer = Fit(bank.Io(), bank.Info());
    if (answer == Answer::kFound) fittedClass_ = bank.Class();
    return answer;
  }
  bool IsFittedTo(BankObject const& bank) const noexcept {
    return bank.Class() != nullptr && bank.Class() == fittedClass_;
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
    fittedClass_ = nullptr;
    fileResident_ = false;
    name_ = {};
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
  std::type_info const* fittedClass_ = nullptr;  // of the object that `format_` was selected for
  BankName name_;                                // of the open tree, where LocateAgain opened it
  LibraryStamp stamp_;                           // when the tree was last known to be good
  BankMemory memory_;
};

}  // namespace zel
