// LibSearch_i: the located banks of one type, searched in order.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "maint/block_info.h"
#include "maint/located_bank.h"
#include "store/lib_file.h"
#include "zelaccess/Key_p.h"
#include "zelaccess/LibSearch_p.h"

namespace zel {

class LibSearch_i final : public LibSearch_p {
 public:
  LibSearch_i() = default;
  LibSearch_i(LibSearch_i const&) = delete;
  LibSearch_i& operator=(LibSearch_i const&) = delete;
  ~LibSearch_i() override = default;

  void SetLibraries(long count, LibFile* const* libraries) override;
  void SetBankNames(long count, char const (*names)[9]) override;
  void SetBankNames(long count, char const* const* names) override;
  void SetLibraryBanks(long count, LibFile* const* libraries, char const (*names)[9]) override;
  bool Search(Key* key, IZelBankDef* bank, bool allBanks) override;
  void ReservedSearch() override {}

 private:
  static constexpr std::int32_t kNoPair = -1;

  // A bank that is searched.
  struct SearchEntry {
    std::string bankName;
    LibFile_i* library;
    std::int32_t pairIndex;
    bool isProtected;
    LocatedBank bank;
  };

  void DropPairs() noexcept;
  void DropAll() noexcept;
  void DropEntries() noexcept;
  void TakeLibraries(long count, LibFile* const* libraries);
  template <typename Names>
  void TakeNames(long count, Names names);
  bool Prepare(IZelBankIO* bank, BlockInfo const& info);
  bool AddEntry(IZelBankIO* bank, BlockInfo const& info, LibFile* library,
                std::string const& bankName, std::int32_t pairIndex);
  bool ReadEntries(Key_p* key, IZelBankIO* bank, BlockInfo const& info, bool allBanks,
                   bool& swapped);

  bool librariesSet_ = false;
  bool namesSet_ = false;
  bool pairsSet_ = false;
  bool prepared_ = false;
  std::string preparedType_;
  std::vector<LibFile*> libraries_;
  std::vector<std::string> bankNames_;
  std::vector<std::uint8_t> foundFlags_;      // by pair
  std::vector<std::uint8_t> protectedFlags_;  // by pair
  std::vector<std::unique_ptr<SearchEntry>> entries_;
};

}  // namespace zel
