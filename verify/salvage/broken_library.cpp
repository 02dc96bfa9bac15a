#include "verify/salvage/broken_library.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>
#include <utility>

#include "frame/ascii.h"
#include "purecomp/record_format.h"
#include "store/block_store.h"
#include "store/held_writes.h"
#include "store/packed_text.h"
#include "store/unfinished_flush.h"

namespace zel {

namespace f = format;

namespace {

constexpr std::int32_t kTypes[] = {libKind11, libKind12, libKind13};
// How many blocks of each file are searched for the type and the sizes of blocks.
constexpr std::int64_t kMostLookedAt = 4000;

// The words that every head of these trees has before the root.
struct OwnTree {
  std::int32_t keyWords;
  std::int32_t dataWords;
};
constexpr OwnTree kOwnTrees[f::kTreeHeadCount] = {
    {f::kBankKeyWords, f::kBankDataWords}, {f::kIdKeyWords, 1}, {f::kCasKeyWords, 1}};

std::string PathOf(std::string path, int number) {
  path.back() = "0123456789"[number];
  return path;
}

// The path to which the numbers of the other files are given. Every reader looks for them next to
// the path that it is given, which can be a link; only where none is there are those next to the
// linked file taken.
std::string FirstPathOf(platform::FileSystem& system, std::string const& path) {
  for (int file = 2; file <= f::kMaxFiles; ++file) {
    if (system.Exists(PathOf(path, file))) return path;
  }
  std::string const target = system.Target(path);
  constexpr std::string_view kEnding = ".lb1";
  bool const isNamedAlike =
      target.size() > kEnding.size() &&
      SameText(std::string_view(target).substr(target.size() - kEnding.size()), kEnding);
  return isNamedAlike ? target : path;
}

// How many of the five words that are the same in every such head are right.
int RightWords(std::int32_t const* head, OwnTree const& tree) noexcept {
  return int{head[f::kHeadDigits] % 10 == f::kStorageInline} +
         int{head[f::kHeadNodeWords] == f::kNodeWords} +
         int{head[f::kHeadEntryWords] == tree.keyWords + tree.dataWords} +
         int{head[f::kHeadKeyWords] == tree.keyWords} +
         int{head[f::kHeadDataWords] == tree.dataWords};
}

bool IsType(std::int32_t word) noexcept { return word >= libKind11 && word <= libKind13; }

}  // namespace

openErrors BrokenLibrary::Open(platform::FileSystem& system, std::string const& path) {
  std::array<std::unique_ptr<platform::BlockFile>, f::kFileSlots> files;
  std::string const firstPath = path.empty() ? path : FirstPathOf(system, path);
  std::string unopened;
  for (int file = 1; file <= f::kMaxFiles && !firstPath.empty(); ++file) {
    platform::OpenedFile opened = system.Open(PathOf(firstPath, file), platform::OpenMode::kRead);
    if (opened.outcome == platform::OpenOutcome::kNotFound) continue;
    bool const isNeeded = file <= f::kFilesOfNewLibrary;
    if (!opened.file && isNeeded) return ErrorOf(opened.outcome);
    if (!opened.file) unopened += std::to_string(file);
    files[static_cast<std::size_t>(file)] = std::move(opened.file);
  }
  // A flush that was cut off counts as complete, as for every reader.
  UnfinishedFlush unfinished(system, firstPath);
  if (unfinished.Look() != platform::OpenOutcome::kOk) {
    Repair("the journal next to the library cannot be used: the last flush may be incomplete");
  }
  bool any = false;
  for (int number = 1; number <= f::kMaxFiles; ++number) {
    std::unique_ptr<platform::BlockFile>& file = files[static_cast<std::size_t>(number)];
    if (!file) continue;
    any = true;
    if (JournaledFile const* const journaled = unfinished.Of(number)) {
      auto held = std::make_unique<HeldFile>(std::move(file), number, nullptr);
      if (!held->Overlay(*journaled)) {
        Repair("file " + std::to_string(number) + ": its last flush cannot be completed");
      }
      file = std::move(held);
    }
    auto image = std::make_unique<FileImage>(std::move(file));
    if (image->UnreadableBytes() != 0) {
      Repair("file " + std::to_string(number) + ": " + std::to_string(image->UnreadableBytes()) +
             " bytes cannot be read");
    }
    images_[static_cast<std::size_t>(number)] = std::move(image);
  }
  if (!any) return openNotFound;
  std::int32_t const* words = Image(1) == nullptr ? nullptr : Image(1)->At(0, f::kHeaderWords);
  if (words != nullptr) std::copy_n(words, header_.size(), header_.begin());
  for (int file = 1; file <= f::kMaxFiles; ++file) {
    bool const isStated = header_[static_cast<std::size_t>(f::kFileState + file)] == 1;
    bool const isUsual = file <= f::kFilesOfNewLibrary;
    if (Image(file) != nullptr || !(isUsual || isStated)) continue;
    bool const isThere = unopened.find(static_cast<char>('0' + file)) != std::string::npos;
    Repair("file " + std::to_string(file) + (isThere ? " cannot be opened" : " does not exist"));
  }
  FindBlockSizes();
  FindType();
  FindRoots();
  if (Image(1) != nullptr) {
    std::int32_t const* table = Image(1)->At(BlockWords(1), f::kHeaderWords);
    if (table != nullptr) extents_.Load(table, type_, f::kMaxFiles);
  }
  return openOk;
}

// The number of addresses of a type in the files: every word among the first blocks of each file
// that names a block that the library has. Numbers and packed texts hardly ever look like that.
std::int64_t BrokenLibrary::Votes(std::int32_t type) const {
  std::int64_t votes = 0;
  for (int file = 1; file <= f::kMaxFiles; ++file) {
    if (Image(file) == nullptr) continue;
    std::int64_t const most = std::min(Image(file)->Words(), kMostLookedAt * 250);
    for (std::int64_t at = 0; at < most; ++at) {
      BlockAddress const a = BlockAddress::Split(*Image(file)->At(at, 1));
      if (a.type == type && a.file >= 1 && a.block >= 1 && a.block <= Blocks(a.file) + 1) ++votes;
    }
  }
  return votes;
}

void BrokenLibrary::FindType() {
  std::int64_t most = 0;
  std::int64_t ofHeader = 0;
  type_ = libKind11;
  for (std::int32_t const type : kTypes) {
    std::int64_t const votes = Votes(type);
    if (type == header_[f::kLibType]) ofHeader = votes;
    if (votes > most) {
      most = votes;
      type_ = type;
    }
  }
  if (IsType(header_[f::kLibType]) && ofHeader >= most) {
    type_ = header_[f::kLibType];
  } else {
    Repair("the header has type " + std::to_string(header_[f::kLibType]) +
           ", the addresses in the files have type " + std::to_string(type_));
  }
}

// A size other than that of every library made here is accepted only if the blocks agree: with it,
// more of them begin like a node.
void BrokenLibrary::FindBlockSizes() {
  auto const nodes = [&](FileImage const& image, std::int32_t size) {
    std::int64_t count = 0;
    std::int64_t blocks = 0;
    for (std::int64_t at = 0; at < image.Words() && blocks < kMostLookedAt; at += size, ++blocks) {
      std::int32_t const* words = image.At(at, f::kNodeEntries);
      bool const like = words[f::kNodeCount] > 0 && words[f::kNodeCount] < f::kNodeRoom / 3 &&
                        words[f::kNodeParent] == f::kNullAddress &&
                        (words[f::kNodeLinks] == f::kNullAddress ||
                         IsType(words[f::kNodeLinks] / f::kTypeFactor));
      if (like) ++count;
    }
    return count;
  };
  for (int file = 1; file <= f::kMaxFiles; ++file) {
    std::int32_t const usual = file == 1 ? f::kBlockWordsOfFile1 : f::kBlockWordsOfFile2;
    std::int32_t const said = header_[static_cast<std::size_t>(f::kBlockWords + file)];
    std::int32_t& size = blockWords_[static_cast<std::size_t>(file)];
    size = usual;
    if (Image(file) == nullptr || said == usual) continue;
    std::int32_t const least = file == 1 ? f::kHeaderWords : 1;
    bool const possible = said >= least && said <= f::kMaxBlockWords;
    if (possible && nodes(*Image(file), said) > nodes(*Image(file), usual)) {
      size = said;
    } else {
      Repair("the header has blocks of " + std::to_string(said) + " words in file " +
             std::to_string(file) + "; " + std::to_string(usual) + " words were taken");
    }
  }
}

// Takes the roots from the heads in a block of the first file, if they are there.
bool BrokenLibrary::HeadsAt(std::int32_t block) {
  std::int32_t const* words = Run(BlockAddress{type_, 1, block}.Word(), f::kTreeHeadsWords);
  if (words == nullptr) return false;
  int right = 0;
  for (int tree = 0; tree < f::kTreeHeadCount; ++tree) {
    right += RightWords(words + tree * f::kHeadWords, kOwnTrees[tree]);
  }
  constexpr int kEnough = 8;  // of 15
  if (right < kEnough) return false;
  for (int tree = 0; tree < f::kTreeHeadCount; ++tree) {
    roots_[static_cast<std::size_t>(tree)] = words[tree * f::kHeadWords + f::kHeadRootAddress];
  }
  return true;
}

void BrokenLibrary::FindRoots() {
  BlockAddress const said = BlockAddress::Split(header_[f::kTreeHeadsAddress]);
  if (said.type == type_ && said.file == 1 && HeadsAt(said.block)) return;
  for (std::int32_t block = f::kFirstFreeBlockOfFile1; block <= Blocks(1); ++block) {
    if (!HeadsAt(block)) continue;
    Repair("the heads of the trees are not where the header says, but in block " +
           std::to_string(block));
    return;
  }
  Repair("the heads of the trees are lost");
}

bool BrokenLibrary::PasswordIsGood() const noexcept {
  constexpr std::int32_t kMostCoded = 99'999'999;
  std::int32_t const level = header_[f::kPasswordLevel];
  if (!IsType(header_[f::kLibType]) || level < 0 || level > 2) return false;
  char text[4 * f::kPasswordWords + 1];
  WordsToText(&header_[f::kPassword], f::kPasswordWords, text);
  if (level == 0) return true;
  std::array<std::int32_t, f::kPasswordWords> packed{};
  TextToWords(text, packed.data(), f::kPasswordWords);
  return text[0] != '\0' && header_[f::kPassword] >= 0 && header_[f::kPassword] <= kMostCoded &&
         std::equal(packed.begin(), packed.end(), &header_[f::kPassword]);
}

std::int32_t const* BrokenLibrary::Run(std::int32_t address, std::int32_t words) const noexcept {
  if (!IsAddress(address)) return nullptr;
  BlockAddress const a = BlockAddress::Split(address);
  if (Image(a.file) == nullptr) return nullptr;
  return Image(a.file)->At(std::int64_t{a.block - 1} * BlockWords(a.file), words);
}

bool BrokenLibrary::IsAddress(std::int32_t word) const noexcept {
  BlockAddress const a = BlockAddress::Split(word);
  return a.type == type_ && a.file >= 1 && a.block >= 1;
}

std::int32_t BrokenLibrary::Blocks(int file) const noexcept {
  if (Image(file) == nullptr) return 0;
  std::int64_t const size = BlockWords(file);
  return static_cast<std::int32_t>(
      std::min<std::int64_t>((Image(file)->Words() + size - 1) / size, f::kMaxBlock));
}

bool BrokenLibrary::CanHoldNodes(int file) const noexcept {
  return Image(file) != nullptr && (BlockWords(file) >= f::kNodeWords || Image(2) == nullptr);
}

bool BrokenLibrary::IsFree(std::int32_t address) const noexcept {
  return extents_.Overlaps(address, 1, BlockAddress::Split(address).file);
}

bool BrokenLibrary::WasFreed(std::int32_t address) const noexcept {
  for (int i = 0; i < extents_.Count(); ++i) {
    Extent const& e = extents_[i];
    bool const isInside =
        e.size > 0 && e.size < f::kOpenTail && address >= e.address && address - e.address < e.size;
    if (isInside) return true;
  }
  return false;
}

}  // namespace zel
