// A library that may be damaged: its files, and what its header says, or must have said.
//
// Nothing in it is trusted. What a library cannot do without - type, sizes of blocks, heads of its
// trees - is taken from the header where the files agree with it, and otherwise from the files:
// from the addresses in them, and from what their blocks look like.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "store/block_address.h"
#include "store/extents.h"
#include "store/format.h"
#include "verify/salvage/file_image.h"
#include "zelaccess/LibFile.h"

namespace zel {

class BrokenLibrary {
 public:
  using Header = std::array<std::int32_t, format::kHeaderWords>;

  // Opens every file that exists. openNotFound if none does, openDenied if one
  // of the first two is in use or may not be read, openFailed if one of them cannot be opened.
  openErrors Open(platform::FileSystem& system, std::string const& firstPath);

  std::int32_t Type() const noexcept { return type_; }
  // The header as it is on file; all zeros if it cannot be read. Only texts, memo and password may
  // be taken from it.
  Header const& HeaderWords() const noexcept { return header_; }
  // What had to be found without the header, as texts; empty for a good header.
  std::vector<std::string> const& Repairs() const noexcept { return repairs_; }
  // True when password level and password are what a writer leaves.
  bool PasswordIsGood() const noexcept;
  // The root that the head of one of the library's own trees names: 0 the directory, 1 the IDs, 2
  // the CAS numbers. 0 if the head cannot be found.
  std::int32_t RootOf(int tree) const noexcept { return roots_[static_cast<std::size_t>(tree)]; }

  // The words of a run of blocks, zeros after the end of its file; null for an address at which the
  // library cannot have anything, and for more than FileImage::kMostWords.
  std::int32_t const* Run(std::int32_t address, std::int32_t words) const noexcept;
  // True for a word that can be an address of this library, even of a block after the end of a file
  // that was cut.
  bool IsAddress(std::int32_t word) const noexcept;
  // The blocks of a file, a partial last one included; 0 for a file that does not exist.
  std::int32_t Blocks(int file) const noexcept;
  std::int32_t BlockWords(int file) const noexcept {
    return blockWords_[static_cast<std::size_t>(file)];
  }
  // True if the file can hold nodes of trees.
  bool CanHoldNodes(int file) const noexcept;
  // True if the block table says that the block is free.
  bool IsFree(std::int32_t address) const noexcept;
  // The same, but not for a block after all that were ever used.
  bool WasFreed(std::int32_t address) const noexcept;

 private:
  void FindType();
  void FindBlockSizes();
  void FindRoots();
  std::int64_t Votes(std::int32_t type) const;
  bool HeadsAt(std::int32_t block);
  void Repair(std::string text) { repairs_.push_back(std::move(text)); }
  FileImage const* Image(int file) const noexcept {
    return images_[static_cast<std::size_t>(file)].get();
  }

  std::array<std::unique_ptr<FileImage>, format::kFileSlots> images_;
  Header header_{};
  std::int32_t type_ = 0;
  std::array<std::int32_t, format::kFileSlots> blockWords_{};
  std::array<std::int32_t, format::kTreeHeadCount> roots_{};
  ExtentList extents_;
  std::vector<std::string> repairs_;
};

}  // namespace zel
