// Creating and opening a library, and the public factories.
#include <algorithm>
#include <memory>

#include "frame/ascii.h"
#include "frame/limits.h"
#include "frame/path_parts.h"
#include "store/lib_file.h"
#include "store/packed_text.h"

namespace zel {

namespace f = format;

namespace {

constexpr std::size_t kShortestPath = 5;  // as passed by the host
constexpr std::string_view kExtension = ".lb1";
constexpr std::int32_t kMinBlockWordsOfFile1 = f::kHeaderWords;

std::string FullPath(char const* path) {
  std::string full = AbsolutePath(TextOrEmpty(path));
  return full.size() > kMostPath ? std::string() : full;
}

bool EndsInExtension(std::string_view path) noexcept {
  return path.size() >= kExtension.size() &&
         SameText(path.substr(path.size() - kExtension.size()), kExtension);
}

bool IsLibType(std::int32_t type) noexcept { return type >= libKind11 && type <= libKind13; }

bool IsBlockSize(std::int32_t words, std::int32_t least) noexcept {
  return words >= least && words <= f::kMaxBlockWords;
}

}  // namespace

LibFile_i::LibFile_i(platform::FileSystem& system, accModes mode, char const* path,
                     std::string_view name)
    : store_(system, mode, FullPath(path)),
      pathNamesLibrary_(TextOrEmpty(path).size() >= kShortestPath &&
                        EndsInExtension(store_.FirstPath())),
      name_(name.substr(0, kMostPath)) {}

openErrors LibFile_i::CreateNew(libTypes type) {
  if (!pathNamesLibrary_) return openNotLibrary;
  openErrors const error = store_.OpenFile(1, true, false);
  if (error != openOk) {
    Shut();
    return error;
  }
  header_.fill(0);
  header_[f::kLibType] = type % 100;
  header_[f::kFileCount] = f::kFilesOfNewLibrary;
  header_[f::kReserved16] = f::kReserved16Value;
  header_[f::kTreeHeadsAddress] = f::kNullAddress;
  header_[f::kMemoWords] = f::kMemoWordsDefault;
  header_[f::kMemoAddress] = f::kNullAddress;
  header_[f::kBlockWords + 1] = f::kBlockWordsOfFile1;
  header_[f::kBlockWords + 2] = f::kBlockWordsOfFile2;
  TextToWords(f::kCreatorTagText, &header_[f::kCreatorTag], f::kCreatorTagWords);
  UnpackHeader();
  MakeBlockTable(blockTable_.data(), header_[f::kLibType]);
  store_.Extents().Load(blockTable_.data(), header_[f::kLibType], header_[f::kFileCount]);
  InitTreeHead(Head(0), false, f::kBankKeyWords, f::kBankDataWords, header_[f::kLibType]);
  InitTreeHead(Head(1), false, f::kIdKeyWords, 1, header_[f::kLibType]);
  InitTreeHead(Head(2), false, f::kCasKeyWords, 1, header_[f::kLibType]);
  MakeTrees();
  store_.MarkOpen(true);
  return openOk;
}

// True when the header has what everything else relies on: a file count of 1 to 9, a first file
// whose blocks hold header and table, block sizes that place every block.
bool LibFile_i::HeaderIsGood() const noexcept {
  std::int32_t const files = header_[f::kFileCount];
  bool const hasSecond = files >= 2 && header_[f::kFileState + 2] != 0;
  return IsLibType(header_[f::kLibType]) && files >= 1 && files <= f::kMaxFiles &&
         IsBlockSize(header_[f::kBlockWords + 1], kMinBlockWordsOfFile1) &&
         (!hasSecond || IsBlockSize(header_[f::kBlockWords + 2], 1));
}

void LibFile_i::UnpackHeader() noexcept {
  store_.SetIdentity(header_[f::kLibType], header_[f::kFileCount]);
  for (int number = 1; number <= header_[f::kFileCount]; ++number) {
    std::int32_t const words = header_[static_cast<std::size_t>(f::kBlockWords + number)];
    bool const usable = IsBlockSize(words, 1);
    bool const present = header_[static_cast<std::size_t>(f::kFileState + number)] != 0;
    store_.DeclareFile(number, present && usable, usable ? words : 0);
  }
  WordsToText(&header_[f::kCreatorTag], f::kCreatorTagWords, texts_.creatorTag);
  WordsToText(&header_[f::kVersion], f::kVersionWords, texts_.version);
  WordsToText(&header_[f::kDescription], f::kDescriptionWords, texts_.description);
  WordsToText(&header_[f::kPassword], f::kPasswordWords, texts_.password);
  texts_.reservedA = header_[f::kReservedA];
  texts_.reservedB = header_[f::kReservedB];
}

// Opens file 1, reads and checks the header, and opens file 2 if the header declares it.
openErrors LibFile_i::OpenFiles(bool forceRead, libTypes* type) {
  store_.DeclareFile(1, true, f::kBlockWordsOfFile1);
  openErrors error = store_.OpenFile(1, false, forceRead);
  if (error == openOk) error = store_.FinishLastFlush(forceRead);
  if (error != openOk) return error;
  std::int64_t const got = store_.ReadPlain(f::kHeaderBlock, f::kHeaderWords, header_.data());
  if (got != f::kHeaderBytes || !HeaderIsGood()) return openNotLibrary;
  UnpackHeader();
  if (type != nullptr) *type = static_cast<libTypes>(header_[f::kLibType]);
  if (store_.FileState(2) == BlockStore::kAbsent) return openOk;
  error = store_.OpenFile(2, false, forceRead);
  return error == openNotFound && forceRead ? openSiblingMissing : error;
}

openErrors LibFile_i::TestPassword(Password password) const noexcept {
  if (!password.tested || password.given == texts_.password) return openOk;
  if (!password.given.empty()) return openBadPassword;
  bool const needed = header_[f::kPasswordLevel] != 0 && store_.Mode() == accUpdate;
  return needed ? openPasswordNeeded : openOk;
}

// Words past the end of a file count as zeros. A failed transfer does not, since a flush would
// later write the zeros over the data on file: then returns false.
bool LibFile_i::LoadTablesAndHeads() {
  if (store_.ReadPlain(f::kBlockTableBlock, f::kHeaderWords, blockTable_.data()) < 0 ||
      store_.ReadBlock(header_[f::kTreeHeadsAddress], f::kTreeHeadsWords, heads_.data()) < 0) {
    return false;
  }
  store_.Extents().Load(blockTable_.data(), header_[f::kLibType], header_[f::kFileCount]);
  // Older files lack these.
  if (header_[f::kMemoWords] == 0) header_[f::kMemoWords] = f::kMemoWordsDefault;
  if (header_[f::kMemoAddress] == 0) header_[f::kMemoAddress] = f::kNullAddress;
  if (Head(2)[f::kHeadRootAddress] == 0) {
    InitTreeHead(Head(2), false, f::kCasKeyWords, 1, header_[f::kLibType]);
  }
  return true;
}

openErrors LibFile_i::RunOpenSteps(Password password, libTypes* type) {
  // The first open never requests write access.
  openErrors error = OpenFiles(true, type);
  if (error == openOk) error = TestPassword(password);
  if (error != openOk) return error;
  if (store_.Mode() == accUpdate) {
    store_.CloseFile(1);
    store_.CloseFile(2);
    // Another writer may have intervened: the header is read again under the exclusive lock.
    error = OpenFiles(false, type);
    if (error != openOk) return error;
  }
  store_.MarkOpen(true);
  if (!LoadTablesAndHeads()) return openFailed;
  MakeTrees();
  return openOk;
}

openErrors LibFile_i::OpenExisting(Password password, libTypes* type) {
  if (!pathNamesLibrary_) return store_.FirstFileExists() ? openNotLibrary : openNotFound;
  openErrors error = openFailed;
  try {
    error = RunOpenSteps(password, type);
  } catch (...) {
    Shut();
    throw;
  }
  if (error != openOk) Shut();
  return error;
}

void LibFile_i::MakeTrees() {
  bankTree_.emplace(store_, Head(0));
  idTree_.emplace(store_, Head(1));
  casTree_.emplace(store_, Head(2));
}

void LibFile_i::DropTrees() noexcept {
  bankTree_.reset();
  idTree_.reset();
  casTree_.reset();
  foundBanks_.clear();
  foundNumbers_.clear();
}

void LibFile_i::Shut(bool isClean) noexcept {
  DropTrees();
  store_.MarkOpen(false);
  if (isClean) store_.CloseCleanly();
  store_.CloseAll();
}

openErrors LibFile_i::ReopenLibFile() {
  if (store_.IsOpen()) return openOk;
  openErrors const error = OpenExisting({false, {}}, nullptr);
  if (error == openOk && closedNameIndex_ == this) SetNameIndex(this);
  return error;
}

// --- factories ---------------------------------------------------------------------------------

namespace {

// A library made by a factory; destroyed unless the factory succeeds.
struct Deleter {
  void operator()(LibFile_i* library) const { delete library; }
};
using OwnedLibrary = std::unique_ptr<LibFile_i, Deleter>;

LibFile* Open(accModes mode, char const* path, std::string_view name, char const* password,
              openErrors& error, libTypes* type) {
  OwnedLibrary library(new LibFile_i(platform::SystemFileSystem(), mode, path, name));
  error = openFailed;  // remains when the open throws
  error = library->OpenExisting({true, TextOrEmpty(password)}, type);
  return error == openOk ? library.release() : nullptr;
}

std::string FileNameOf(char const* path) {
  PathParts const parts = SplitPath(TextOrEmpty(path));
  return parts.name + parts.extension;
}

}  // namespace

LibFile* LibFile::NewLibFile(libTypes type, char const* path, char const* name, openErrors& error) {
  OwnedLibrary library(
      new LibFile_i(platform::SystemFileSystem(), accUpdate, path, TextOrEmpty(name)));
  error = library->CreateNew(type);
  return error == openOk ? library.release() : nullptr;
}

LibFile* LibFile::NewLibFile(libTypes type, char const* path, openErrors& error) {
  return NewLibFile(type, path, path, error);
}

LibFile* LibFile::OpenLibFile(accModes mode, char const* path, char const* name,
                              char const* password, openErrors& error) {
  return Open(mode, path, TextOrEmpty(name), password, error, nullptr);
}

LibFile* LibFile::OpenLibFile(accModes mode, char const* path, char const* name,
                              char const* password, openErrors& error, libTypes& type) {
  return Open(mode, path, TextOrEmpty(name), password, error, &type);
}

LibFile* LibFile::OpenLibFile(accModes mode, char const* path, char const* password,
                              openErrors& error) {
  return Open(mode, path, FileNameOf(path), password, error, nullptr);
}

LibFile* LibFile::OpenLibFile(accModes mode, char const* path, char const* password,
                              openErrors& error, libTypes& type) {
  return Open(mode, path, FileNameOf(path), password, error, &type);
}

void LibFile::StatusLibFile(char const* path, libTypes& type, openErrors& error) {
  LibFile_i library(platform::SystemFileSystem(), accRead, path, FileNameOf(path));
  error = openFailed;
  error = library.OpenExisting({false, {}}, &type);
}

}  // namespace zel
