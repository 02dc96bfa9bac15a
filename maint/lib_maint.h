// LibMaint_i: the operations on one library.
//
// Every access to an item uses LocateItem, which resolves the key, locates the bank, unless it is
// still located from the call before, and searches for the key. When the root of the bank's tree
// has changed, the head of the tree is written back into the bank's directory entry.
//
// A step that fails leaves its reason as the pending text of the log and returns false.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "maint/bank_memory.h"
#include "maint/block_info.h"
#include "maint/face_ref.h"
#include "maint/located_bank.h"
#include "maint/maint_log.h"
#include "store/btree.h"
#include "store/format.h"
#include "store/lib_file.h"
#include "zelaccess/Key_p.h"
#include "zelaccess/LibMaint_p.h"

namespace zel {

class LibMaint_i final : public LibMaint_p {
 public:
  // Component numbers from here on are assigned to a host's own components.
  static constexpr std::int32_t kFirstOwnNumber = 21'000'000;

  explicit LibMaint_i(LibFile* library);
  LibMaint_i(LibMaint_i const&) = delete;
  LibMaint_i& operator=(LibMaint_i const&) = delete;
  ~LibMaint_i() override = default;

  std::int32_t FindNumberByCas(casn const& number, bool& fromNameIndex) override;
  std::int32_t FindNumberByCas(casn const& number) override;
  std::int32_t FindNumberById(char const* id, bool& fromNameIndex) override;
  std::int32_t FindNumberById(char const* id) override;
  void GetIdOfNumber(std::int32_t number, char* id, bool& fromNameIndex) override;
  void GetIdOfNumber(std::int32_t number, char* id) override;
  void GetCasOfNumber(std::int32_t number, casn& cas, bool& fromNameIndex) override;
  void GetCasOfNumber(std::int32_t number, casn& cas) override;
  bool CheckComponent(IZelPureComp* component, Key* key, char* text) override;
  bool CheckComponent(IZelPureComp* component, char* text) override;

  bool CreateBank(char const* type, char const* name, std::int32_t format) override;
  bool DeleteBank(char const* type, char const* name) override;
  void GetBankMemo(char const* type, char const* name, char* memo) override;
  void SetBankMemo(char const* type, char const* name, char const* memo) override;
  std::int32_t GetBankFormat(char const* type, char const* name) override;
  bool BankExists(char const* type, char const* name) override;

  bool ItemExists(IZelBankDef* bank, char const* name, Key* key) override;
  bool ReadItem(IZelBankDef* bank, char const* name, Key* key) override;
  bool RewriteItem(IZelBankDef* bank) override;
  bool WriteItem(IZelBankDef* bank, char const* name, Key* key) override;
  bool DeleteItem(char const* type, char const* name, Key* key) override;

  std::int32_t NextComponentNumber() override;
  void CollectUsedNumbers() override;

  void BeginIdWalk() override;
  bool NextId(std::int32_t& number, char* id) override;
  void EndIdWalk() override { DropTree(); }
  void BeginBankWalk(char const* type) override;
  void BeginBankWalk() override { BeginBankWalk(""); }
  bool NextBank(char* type, char* name) override;
  void EndBankWalk() override { DropTree(); }
  bool BeginItemWalk(char const* type, char const* name) override;
  bool NextItem(std::int32_t* keyWords, IZelBankDef* bank) override;
  bool NextItemKey(std::int32_t* keyWords) override;
  void EndItemWalk() override { DropTree(); }

  bool Import(char const* path, bool replaceExisting) override;
  bool ImportComponent(char const* path, char const* bankName, bool replaceExisting) override;
  char const* GetLastErrorText() const override { return log_.LastErrorText(); }
  bool ExportLibrary(char const* path, bool writeBanner, bool componentFiles) override;
  bool ExportLibrary(char const* path, bool writeBanner) override;
  bool ExportLibrary(char const* path) override;
  bool ExportBank(char const* type, char const* name, char const* path, bool writeBanner,
                  bool componentFiles) override;
  bool ExportBank(char const* type, char const* name, char const* path, bool writeBanner) override;
  bool ExportBank(char const* type, char const* name, char const* path) override;
  bool ExportComponentByNumber(char const* bankName, std::int32_t number, char const* path,
                               bool writeBanner) override;
  bool ExportComponentByNumber(char const* bankName, std::int32_t number,
                               char const* path) override;
  bool ExportComponentById(char const* bankName, char const* id, char const* path,
                           bool writeBanner) override;
  bool ExportComponentById(char const* bankName, char const* id, char const* path) override;

  void GetRefBankNames(char const* type, char const* name, std::int32_t count,
                       char const (*types)[9], char (*names)[9]) override;
  void WriteTextDump(LibFile* library) override;

  void SetLogLevel(std::int32_t level) override { log_.SetLevel(level); }
  void SetWriteFormat(bool on) override { writeFormat_ = on; }
  void SetWriteBanner(bool on) override { writeBanner_ = on; }
  void SetWriteNotice(bool on) override { writeNotice_ = on; }
  void SetComponentFiles(bool on) override { componentFiles_ = on; }
  bool DumpBankTree(char const* type, char const* name, std::int32_t indent, std::FILE* stream,
                    std::int32_t expected) override;
  void SetImportChecks(zelImportChecks checks) override { importChecks_ = checks; }
  void GetImportCounts(ZelImportCounts& counts) override { counts = importCounts_; }
  void SetLogSink(ZelLogSink* sink) override { log_.SetSink(sink); }
  bool RenumberComponent(char const* bankName, std::int32_t from, std::int32_t to,
                         char* text) override;

  zelImportChecks ImportChecks() const noexcept { return importChecks_; }
  // The log to which imports and exports of this library report; its pending text is the reason of
  // the last failed step.
  MaintLog& Log() noexcept { return log_; }
  LibFile_i* Library() const noexcept { return library_; }
  // Report to the host's sink for items that the item at `place` cannot be read because of a block,
  // or is left out for another reason. Return false without a sink: the caller then lets a block
  // error propagate.
  bool TellUnread(std::string const& place, unsigned long address) const;
  bool TellLeftOut(std::string const& place, std::string const& why) const;

  // For a walk over items that decodes them itself. The entry has the key words first; false at the
  // end.
  bool NextEntry(std::int32_t const*& entry) {
    return WalkIs(WalkMode::kItems) && bank_.Tree().WalkNext(entry);
  }
  std::int32_t WalkedKeyWords() const noexcept { return keyWords_; }
  // The record format of the walked bank; 0 when an object of the bank's type does not fit it.
  std::int32_t FormatOfWalk(IZelBankDef* bank);
  // The place of an entry's item, for a report to the host.
  std::string PlaceInWalk(std::int32_t const* entry) const;

 private:
  enum class WalkMode : std::uint8_t { kNone, kIds, kBanks, kItems };
  enum class Located : std::uint8_t {
    kFound,
    kAbsent,  // all is well, but the key is not in the tree, which is at the place where it belongs
    kFailed
  };

  // lib_maint.cpp
  void DropTree() noexcept;
  void DropItem() noexcept;
  BTree_i* Directory() const noexcept;
  void StoreHead(char const* type, char const* name);
  void StoreGrownHead(char const* type, char const* name);
  bool FindBank(char const* type, char const* name, std::int32_t const*& entry) const;
  // lib_maint_items.cpp
  Located LocateItem(char const* name, Key_p* key, std::int32_t const*& entry);
  bool PrepareKey(BlockInfo const& info, Key_p* key);
  Located Fail(std::string_view reason);
  void KeepItem(char const* name, Key_p* key);
  bool FindItemAgain(IZelBankIO* bank, BlockInfo const& info);
  IZelBankDef* BankOfType(char const* type);
  void WriteRecord(IZelBankIO* bank);
  void AddRecord(IZelBankIO* bank, char const* name, std::int32_t const* key);
  void MoveEntry(char const* name, std::int32_t const* from, std::int32_t const* to,
                 std::int32_t const* data);
  bool MoveRecord(char const* name, IZelPureComp& component, std::int32_t number, Key_p* from,
                  Key_p* to);
  void AddRecordBehindItsKey(IZelBankIO* bank, char const* name, std::int32_t const* key);
  void WriteBlocks(IZelBankIO* bank, std::int32_t* data);
  void EnterIdentifiers(IZelBankIO* bank);
  // lib_maint_identity.cpp
  void UpdateIdTrees(IZelPureComp& record);
  bool FindComponentByNumber(std::int32_t number, char* id, casn& cas, bool& fromReference);
  // lib_maint_check.cpp
  bool MayBeWritten(IZelBankIO* bank, Key* key);
  void WarnOfSharedCas(IZelPureComp* component, LibFile_p* reference);
  // The functions of interchange are defined in xml/.
  template <typename Run>
  bool RunImport(Run const& run);
  template <typename Run>
  bool RunExport(char const* path, bool writeBanner, bool componentFiles, Run const& run);
  // lib_maint_walks.cpp
  bool StartWalk(WalkMode mode, std::int32_t const* head);
  bool WalkIs(WalkMode mode) noexcept;
  bool ReadOrTell(IZelBankIO* bank, std::int32_t const* entry);
  bool FitWalk();
  // lib_maint_numbers.cpp
  void AddUsedNumbers(LibFile* library);

  WalkMode walkMode_ = WalkMode::kNone;
  LibFile_i* library_;  // not owned
  BankObject object_;   // the bank that the present call works on
  LocatedBank bank_;    // the current tree: that of a bank, or the one that is being walked
  // The bank object that DeleteItem made last, and the type that was asked for.
  std::optional<FaceRef<IZelBankDef>> madeBank_;
  std::string madeType_;
  bool usedNumbersValid_ = false;
  std::set<std::int32_t> usedNumbers_;
  std::string currentType_;    // bank type of the current tree, or filter of a bank walk
  std::string walkedName_;     // of the bank whose items are walked
  std::int32_t keyWords_ = 0;  // of the current tree
  bool swapped_ = false;
  // The item that RewriteItem writes: bank, key, and the library's count of changes at the time.
  std::string itemBank_;
  std::array<std::int32_t, format::kMaxKeyWords> itemKey_{};
  std::uint64_t itemChanges_ = 0;
  bool itemValid_ = false;
  MaintLog log_;
  bool writeFormat_ = true;
  bool writeBanner_ = false;
  bool writeNotice_ = false;
  bool componentFiles_ = true;
  zelImportChecks importChecks_ = importUnchecked;
  ZelImportCounts importCounts_;
};

}  // namespace zel
