// Verify: the integrity check of a library, and what a data tool asks beyond the working classes:
// the catalogue of a pure component's data, the worth of derived constants, names of unit codes,
// texts in key words, molecular weights of formulas.
#ifndef ZELACCESS_VERIFY_H
#define ZELACCESS_VERIFY_H

#include <cstdint>

#include "zelaccess/Export.h"

namespace zel {

class IZelPureComp;
class LibFile;

// --- what a pure component consists of -----------------------------------------------------------

// A constant with a keyword. Values are in the internal unit, which is empty for a pure number.
struct ZelConstantInfo {
  char const* keyword;  // "TC"
  char const* label;    // "critical temperature"
  char const* unit;     // "K"
  std::uint32_t index;  // for IZelPureComp
};

// A correlation, its index being its place. The unit is that of an evaluated value.
struct ZelCorrelationInfo {
  char const* name;   // "VaporPressure"
  char const* label;  // "vapor pressure"
  char const* unit;   // "kPa"
};

// Constant tables, valid for the life of the module.
ZEL_API ZelConstantInfo const* GetConstantCatalogue(std::int32_t& count);
ZEL_API ZelCorrelationInfo const* GetCorrelationCatalogue(std::int32_t& count);

// The unit behind a unit code of a stored correlation, "" for 0 and for a code that names none.
ZEL_API char const* GetUnitCodeName(std::int32_t code);

// The text of `count` key words (at most 10), for banks whose items are named by text. Buffer of
// 41 characters; empty without words.
ZEL_API void GetKeyText(std::int32_t const* words, std::int32_t count, char* text);

// The molecular weight that a formula gives with the abridged standard atomic weights of the IUPAC
// (2021), in kg/kg-mol; undefined for a text that is no formula and for elements that have none.
ZEL_API double GetFormulaWeight(char const* formula);

// How a constant of a component stands after IZelBankIO::Complete.
enum zelConstantStates : std::int32_t {
  constantMissing = 0,   // no value, or one that is not finite
  constantStored = 1,    // read or set
  constantFilledIn = 2,  // derived from data that are there
  constantUnfounded = 3  // computed from something that is not there; the number means nothing
};

// The state of a constant by index, 0 to 99; constantMissing for null and for another index.
// Complete computes some constants from whatever is there: the parachor from an undefined critical
// volume, the carbon number from an empty formula, the acentric factor from a vapor pressure whose
// record is not in K. Each method's inputs are followed down to what is stored.
ZEL_API zelConstantStates GetConstantState(IZelPureComp* component, std::uint32_t index);

// --- room in the files ---------------------------------------------------------------------------

// One file of an open library. Free runs lie between used blocks and are filled by later writes;
// the room behind the last block is not among them.
struct ZelFileRoom {
  std::int32_t blockBytes = 0;
  std::int64_t blocks = 0;
  std::int64_t freeBlocks = 0;
  std::int32_t freeRuns = 0;
};

// False when the library is not open or has no file of that number (1 to 9).
ZEL_API bool GetFileRoom(LibFile* library, std::int32_t file, ZelFileRoom& room);

// --- the integrity check -------------------------------------------------------------------------

enum zelFindings : std::int32_t {
  findingNote = 0,     // worth knowing; nothing is wrong
  findingWarning = 1,  // data that cannot all be right, or room that is lost
  findingDamage = 2    // the library is not what a writer leaves
};

// What is told of each finding. Texts are valid during the call alone.
class ZEL_API ZelFindingSink {
 public:
  // `id` names the kind of finding and is stable, e.g. "tree-order"; `place` is a file, a tree, a
  // bank or an item; `text` says what is wrong.
  virtual void Found(zelFindings severity, char const* id, char const* place, char const* text) = 0;

 protected:
  ~ZelFindingSink() = default;
};

// Walks over items pass over what cannot be read while a library has a sink for it: NextItem of
// every LibMaint on it, and the exports, text dumps and lists that are made from such walks. The
// sink is told of each item (findingDamage, "item", its bank and key, the block), of each ID that
// an export cannot find out, and of each text dump that cannot be written whole (findingDamage,
// "file", its path). Without one (null, as at first) the block error ends the walk. A tree that
// cannot be read ends it either way. The library does not own the sink, which may throw to end the
// walk. Does nothing for null in the place of the library.
ZEL_API void SetItemFindings(LibFile* library, ZelFindingSink* sink);

// Holds everything on file against everything else, without changing a byte: the header; the free
// extents; every tree (order of keys, links all there or none, equal depth, entry counts);
// every block, which must belong to one owner and to one only; the identifier trees against the
// components; every item, which must decode, and which is named where it does not. True when no
// damage was found. Findings come in the order of the walk; a damaged part is not entered. Never
// throws for what is on file. Time and memory grow with the size of the files.
//
//   struct Printer final : zel::ZelFindingSink { void Found(...) override { ... } } printer;
//   bool const sound = zel::VerifyLibrary(library, printer);
//
// Kinds of damage: "header", "extent", "tree-head", "tree-node", "tree-order", "tree-links",
// "tree-depth", "block-owned-twice", "block-free-and-used", "block-behind-end", "block-address",
// "block-unreadable", "memo", "item", "bank", "identifier-wrong". Warnings: "bank" (of an unknown
// type), "block-leaked", "identifier-missing", "identifier-stale". Notes: "sizes".
ZEL_API bool VerifyLibrary(LibFile* library, ZelFindingSink& sink);

}  // namespace zel

#endif  // ZELACCESS_VERIFY_H
