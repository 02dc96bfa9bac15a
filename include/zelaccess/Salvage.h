/// \file
/// Salvage: takes what can still be read out of a damaged library into a new one.
///
///     zel::libTypes type;
///     zel::FindLibraryType("broken.lb1", type);
///     auto* rescued = zel::LibFile::NewLibFile(type, "rescued.lb1", error);
///     zel::ZelSalvageCounts counts;
///     zel::SalvageLibrary("broken.lb1", "", rescued, &sink, counts);
///     zel::LibFile::DelLibFile(rescued);
///
/// Nothing on file makes these functions fail: the broken library is read as plain files, even
/// where OpenLibFile refuses it, and is not changed. Calls for different libraries may run at the
/// same time.
#ifndef ZELACCESS_SALVAGE_H
#define ZELACCESS_SALVAGE_H

#include <cstdint>

#include "zelaccess/Export.h"
#include "zelaccess/LibFile.h"

namespace zel {

/// What a record of a salvage is about.
enum zelSalvageKinds : std::int32_t {
  salvageHeader = 0,  ///< The library as a whole: header, description, password, memo.
  salvageBank = 1,    ///< A bank; its items follow.
  salvageItem = 2,    ///< An item of the bank.
  salvageGap = 3      ///< A part of the bank's tree: how many items it had is not known.
};

/// What became of it.
enum zelSalvageStates : std::int32_t {
  salvageTaken = 0,    ///< It is in the rescued library as it was.
  salvageAltered = 1,  ///< It is there, but a part of it is missing, or was changed.
  salvageKeyless = 2,  ///< It was found, but its key cannot be right; it is not in the library.
  salvageLost = 3      ///< It is not in the rescued library.
};

/// How it was found.
enum zelSalvageWays : std::int32_t {
  salvageByWalk = 0,   ///< By the links of the tree that it belongs to.
  salvageByScan = 1,   ///< Among all blocks of the files.
  salvageOutdated = 2  ///< In a block that is free, or that a deleted item left: it may be old.
};

/// A record of a salvage. Texts are never null and valid only during the call.
struct ZelSalvageRecord {
  zelSalvageKinds kind;          ///< What it is about.
  zelSalvageStates state;        ///< What became of it.
  zelSalvageWays way;            ///< How it was found.
  char const* type;              ///< Type of the bank; empty for the library.
  char const* bank;              ///< Name of the bank in the rescued library.
  std::int32_t const* keyWords;  ///< Key of an item, as far as it is known; null for others.
  std::int32_t keyCount;         ///< Number of key words.
  char const* text;              ///< Why, or what is missing; empty if there is nothing to say.
};

/// What a host implements to follow a salvage. It is called in the thread that made the call.
class ZEL_API ZelSalvageSink {
 public:
  /// Receives a record. It may throw to end the salvage.
  /// \param record  what was found
  virtual void Salvaged(ZelSalvageRecord const& record) = 0;

 protected:
  ~ZelSalvageSink() = default;
};

/// What a salvage found. `lost` and `keyless` count items that are known to have existed; a gap can
/// mean any number of them.
struct ZelSalvageCounts {
  std::int64_t banks = 0;    ///< Banks in the rescued library.
  std::int64_t items = 0;    ///< Items in the rescued library.
  std::int64_t scanned = 0;  ///< Those of them that no tree reached.
  std::int64_t altered = 0;  ///< Those of them of which a part is missing, or was changed.
  std::int64_t keyless = 0;  ///< Items that were found, but not with a key that can be right.
  std::int64_t lost = 0;     ///< Items with a known key that could not be read.
  std::int64_t gaps = 0;     ///< Parts of trees that are lost.
};

/// Finds out the type of a library that may be damaged.
/// \param path  the first file, which may be missing when another file is there; null is the empty
///              text
/// \param type  receives the type of the header if the addresses in the files are of that type,
///              otherwise the type of most addresses; libKind11 if neither is known
/// \return openOk; openNotLibrary for a path that does not end in ".lb1"; openNotFound when no file
///         of the library exists; openDenied when one of the first two is in use or may not be
///         read; openFailed when one of them cannot be opened
ZEL_API openErrors FindLibraryType(char const* path, libTypes& type);

/// Takes every item that can be read out of a library.
///
/// First the trees are walked as far as their links lead. Then all blocks are searched for nodes
/// and components that no tree reaches: those that fit a gap of a tree are put there, and where the
/// bank directory is damaged, whole banks are found by their trees. What does not fit a gap is left
/// out, so that a deleted item does not come back. The identifiers are made anew from the
/// components that were taken. Doubtful cases are named in the records. The order of the records is
/// that of the banks, and within a bank that of the keys.
///
/// The result satisfies VerifyLibrary as far as the items themselves do. Throws the block error of
/// a write to the rescued library that fails, std::bad_alloc, and what the sink throws.
/// \param path      the first file of the broken library, as above; null is the empty text
/// \param password  the password; needed as for an update, where the header still has one; null is
///                  the empty text
/// \param rescued   an open, empty library of the type that FindLibraryType returned; null, and one
///                  that is closed or open for reading, is openFailed
/// \param sink      receives the records; may be null
/// \param counts    receives what was found
/// \return openOk when the salvage was made, whatever it found; otherwise as FindLibraryType,
///         openPasswordNeeded or openBadPassword
ZEL_API openErrors SalvageLibrary(char const* path, char const* password, LibFile* rescued,
                                  ZelSalvageSink* sink, ZelSalvageCounts& counts);

}  // namespace zel

#endif  // ZELACCESS_SALVAGE_H
