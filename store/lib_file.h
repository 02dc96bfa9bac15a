// LibFile_i: one library - its files, header, tree heads and its own three trees.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "store/block_store.h"
#include "store/btree.h"
#include "store/format.h"
#include "zelaccess/LibFile_p.h"
#include "zelaccess/Progress.h"

namespace zel {

class ZelFindingSink;

class LibFile_i final : public LibFile_p {
 public:
  // A closed library; `path` is made absolute. Nothing is touched before CreateNew or OpenExisting.
  LibFile_i(platform::FileSystem& system, accModes mode, char const* path, std::string_view name);
  LibFile_i(LibFile_i const&) = delete;
  LibFile_i& operator=(LibFile_i const&) = delete;
  ~LibFile_i() override;

  // The implementation of NewLibFile and OpenLibFile, on any file system. `type` is set as soon as
  // the header is known to be good. OpenExisting can throw (see LibFile); its files are then
  // closed.
  openErrors CreateNew(libTypes type);
  struct Password {
    bool tested;
    std::string_view given;
  };
  openErrors OpenExisting(Password password, libTypes* type);

  // Closes without a flush: what is only in memory is lost.
  void Abandon() noexcept;

  BlockStore& Store() noexcept { return store_; }

  // Receives the items that a walk skips because they cannot be read; null: the walk throws.
  ZelFindingSink* ItemFindings() const noexcept { return itemFindings_; }
  void SetItemFindings(ZelFindingSink* sink) noexcept { itemFindings_ = sink; }

  // Follows long work; null if nothing does.
  ZelProgress* Progress() const noexcept { return progress_; }
  void SetProgress(ZelProgress* progress) noexcept { progress_ = progress; }

  // From BeginUndo on, the old state of what is changed is kept. TakeBack restores the library to
  // that state, with new tree objects; EndUndo forgets what was kept. TakeBack throws a block error
  // if that fails.
  void BeginUndo();
  void EndUndo() noexcept;
  void TakeBack();

  void FlushLibFile() override;
  void CloseLibFile() override;
  openErrors ReopenLibFile() override;
  char const* GetLibName() const override { return name_.c_str(); }
  char const* GetLibPath() const override { return store_.FirstPath().c_str(); }
  void GetLibInfo(libTypes& type, accModes& mode) const override;
  void GetDescriptionAndVersion(char* description, char* version) const override;
  void SetDescriptionAndVersion(char const* description, char const* version) override;
  void GetReservedWords(std::int32_t& wordA, std::int32_t& wordB) const override;
  void SetReservedWords(std::int32_t wordA, std::int32_t wordB) override;
  void GetMemo(char* memo) const override;
  void SetMemo(char const* memo) override;
  void GetPassword(std::int32_t& level, char* password) const override;
  void SetPassword(std::int32_t level, char const* password) override;
  bool IsPasswordLocked() const override;

  std::int32_t ReadBlock(std::int32_t address, std::int32_t words, std::int32_t* buffer) override;
  std::int32_t WriteBlock(std::int32_t& address, std::int32_t words, std::int32_t const* buffer,
                          std::int32_t fileChoice) override;
  void FreeBlock(std::int32_t& address, std::int32_t words) override;
  bool FindBank(char const* type, char const* name, std::int32_t const*& entry,
                bool marker) override;
  bool HasBank(char const* type, char const* name) override;
  bool FindIdNumbers(char const* id, std::int32_t const*& data) override;
  bool FindCasNumbers(casn const& number, std::int32_t const*& data) override;
  BTree_i* GetBankTree() override { return bankTree_ ? &*bankTree_ : nullptr; }
  BTree_i* GetCharIdTree() override { return idTree_ ? &*idTree_ : nullptr; }
  BTree_i* GetCasTree() override { return casTree_ ? &*casTree_ : nullptr; }
  void ReservedLib1(void*, void*) override {}
  void ReservedLib2(void*, void*) override {}
  void ReservedLib3(void*, void*) override {}
  void GetHeaderBlocks(std::int32_t const** header, std::int32_t const** blockTable,
                       std::int32_t const** treeHeads) override;

  // The current head of one of the library's own trees: 0 the bank directory, 1 the character IDs,
  // 2 the CAS numbers.
  using TreeHead = std::array<std::int32_t, format::kHeadWords>;
  TreeHead HeadOf(int tree) const noexcept;

  // Increases with every search of the bank directory, whose position it moves; 0 while closed.
  std::uint64_t DirectorySearches() const noexcept { return bankTree_ ? bankTree_->Searches() : 0; }

  static LibFile* NameIndex() noexcept { return nameIndex_; }
  static void SetNameIndex(LibFile* library) noexcept;

 private:
  friend class NameIndexUse;
  using HeaderImage = std::array<std::int32_t, format::kHeaderWords>;
  using TreeHeads = std::array<std::int32_t, format::kTreeHeadsWords>;
  // The texts of the header in the form that the host sees.
  struct Texts {
    char creatorTag[4 * format::kCreatorTagWords + 1] = {};
    char version[4 * format::kVersionWords + 1] = {};
    char description[4 * format::kDescriptionWords + 1] = {};
    char password[4 * format::kPasswordWords + 1] = {};
    std::int32_t reservedA = 0;
    std::int32_t reservedB = 0;
  };

  // lib_file_open.cpp
  openErrors RunOpenSteps(Password password, libTypes* type);
  openErrors OpenFiles(bool forceRead, libTypes* type);
  openErrors TestPassword(Password password) const noexcept;
  bool HeaderIsGood() const noexcept;
  void UnpackHeader() noexcept;
  bool LoadTablesAndHeads();
  void MakeTrees();
  void DropTrees() noexcept;
  void Shut(bool isClean = false) noexcept;
  // lib_file_find.cpp
  bool DirectoryIsSound() const noexcept;
  bool SearchDirectory(char const* type, char const* name, std::int32_t const*& data, bool marker);
  bool FindNumbers(BTree_i& tree, std::int32_t const* key, std::int32_t const*& data);
  // lib_file.cpp
  HeaderImage PackedHeader() const noexcept;
  void LeaveNameIndex() noexcept;
  std::int32_t* Head(int tree) noexcept { return heads_.data() + tree * format::kHeadWords; }

  BlockStore store_;
  ZelFindingSink* itemFindings_ = nullptr;  // not owned
  ZelProgress* progress_ = nullptr;         // not owned
  bool pathNamesLibrary_;
  std::string name_;
  HeaderImage header_{};
  HeaderImage blockTable_{};
  TreeHeads heads_{};
  Texts texts_;
  // What is only in memory, as it was at BeginUndo.
  struct Undo {
    HeaderImage header;
    HeaderImage blockTable;
    TreeHeads heads;
    Texts texts;
  };
  std::unique_ptr<Undo> undo_;
  std::optional<BTree_i> bankTree_;
  std::optional<BTree_i> idTree_;
  std::optional<BTree_i> casTree_;
  // Threads that read the library take turns in its trees, whose position each search moves. What
  // they found is kept, so that pointers to it stay valid: bank entries by the key that is tried
  // first, and the data of components that are not in the mapped file.
  using BankKey = std::array<std::int32_t, format::kBankKeyWords>;
  using BankEntry = std::array<std::int32_t, format::kBankDataWords>;
  std::mutex searching_;
  std::map<BankKey, BankEntry> foundBanks_;
  std::set<std::vector<std::int32_t>> foundNumbers_;

  static std::recursive_mutex nameIndexBusy_;
  static std::atomic<LibFile*> nameIndex_;
  static std::atomic<LibFile*> closedNameIndex_;  // the name index when it was closed
};

// Access to the name index during a look-up. All threads fall back on that one library, so they
// take turns.
class NameIndexUse {
 public:
  NameIndexUse() : lock_(LibFile_i::nameIndexBusy_, std::defer_lock) {
    if (LibFile_i::NameIndex() == nullptr) return;
    lock_.lock();
    library_ = LibFile_i::NameIndex();
  }

  // Null if no name index is set.
  LibFile* Library() const noexcept { return library_; }

 private:
  std::unique_lock<std::recursive_mutex> lock_;
  LibFile* library_ = nullptr;
};

}  // namespace zel
