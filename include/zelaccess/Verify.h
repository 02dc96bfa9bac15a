/// \file
/// Verify: the integrity check of a library, and what a data tool needs beyond the working classes:
/// the catalogue of a pure component's data, the state of derived constants, names of unit codes,
/// texts in key words, molecular weights of formulas.
///
/// Functions without a library or a component may be called by any thread at any time; those with
/// one follow its thread rules (LibFile.h).
#ifndef ZELACCESS_VERIFY_H
#define ZELACCESS_VERIFY_H

#include <cstdint>

#include "zelaccess/Export.h"

namespace zel {

class IZelPureComp;
class LibFile;

// --- what a pure component consists of -----------------------------------------------------------

/// A constant with a keyword. Texts are never null.
struct ZelConstantInfo {
  char const* keyword;  ///< Keyword, "TC" for example.
  char const* label;    ///< Meaning, "critical temperature" for example.
  char const* unit;     ///< Internal unit, "K" for example; empty for a pure number.
  std::uint32_t index;  ///< Index for IZelPureComp, one of zelProperties.
};

/// A correlation. Texts are never null.
struct ZelCorrelationInfo {
  char const* name;   ///< Name, "VaporPressure" for example.
  char const* label;  ///< Meaning, "vapor pressure" for example.
  char const* unit;   ///< Unit of an evaluated value, "kPa" for example; empty for a pure number.
};

/// Returns the constants that have a keyword.
/// \param count  receives their number
/// \return the table, valid for the life of the module; never null
ZEL_API ZelConstantInfo const* GetConstantCatalogue(std::int32_t& count);
/// Returns the correlations. The index of each is its place in the table.
/// \param count  receives their number
/// \return a constant table, valid for the life of the module; never null
ZEL_API ZelCorrelationInfo const* GetCorrelationCatalogue(std::int32_t& count);

/// Returns the unit that a unit code of a stored correlation means.
/// \param code  the code, `propUnit` of IZelPureComp::GetCorrelation for example
/// \return valid for the life of the module; "" for 0 and for a code that names no unit; never null
ZEL_API char const* GetUnitCodeName(std::int32_t code);

/// Unpacks the text of key words, for banks whose items are named by text.
/// \param words  the words; null is the empty text
/// \param count  number of words, of which at most 10 are used
/// \param text   buffer of 41 characters; null does nothing
ZEL_API void GetKeyText(std::int32_t const* words, std::int32_t count, char* text);

/// Computes the molecular weight of a formula from the abridged standard atomic weights of the
/// IUPAC (2021).
/// \param formula  the formula; null is the empty text, which is not a formula
/// \return the weight in kg/kg-mol; undefined for a text that is not a formula and for elements
///         that have no standard weight
ZEL_API double GetFormulaWeight(char const* formula);

/// What a constant of a component is based on after IZelBankIO::Complete.
enum zelConstantStates : std::int32_t {
  constantMissing = 0,   ///< No value, or one that is not finite.
  constantStored = 1,    ///< Read or set.
  constantFilledIn = 2,  ///< Derived from data that are there.
  constantUnfounded = 3  ///< Computed from missing data; the number is meaningless.
};

/// Returns what a constant of a component is based on.
///
/// Complete computes some constants even from missing data: the parachor from an undefined critical
/// volume, the carbon number from an empty formula, the acentric factor from a vapor pressure whose
/// record is not in K. Each method's inputs are followed down to what is stored.
/// \param component  the component; null is constantMissing
/// \param index      0 to 99, one of zelProperties; any other is constantMissing
/// \return the state
ZEL_API zelConstantStates GetConstantState(IZelPureComp* component, std::uint32_t index);

// --- correlations --------------------------------------------------------------------------------

/// Reports what is wrong with the record of a correlation as a whole: an equation that is not
/// known, or one that loses its form with so few coefficients, since missing ones count as 0.
/// \param equation          number of the equation (docs/equations.md)
/// \param coefficientCount  number of coefficients of the record
/// \param text              buffer of 120 characters, receives the fault, empty for none; may be
///                          null
/// \return true when there is a fault
ZEL_API bool GetCorrelationFault(std::int32_t equation, std::int32_t coefficientCount, char* text);

/// Converts a temperature from one unit of records to another. The result is rounded to 9 decimals,
/// so that a limit of a record stays a limit.
/// \param value    the temperature, in the unit `from`
/// \param from,to  10 K, 11 C, 12 R, 13 F; any other counts as K
/// \return the temperature in the unit `to`; `value` unchanged when the units are equal
ZEL_API double ConvertTemperature(double value, std::int32_t from, std::int32_t to);

/// Evaluates a correlation, like IZelPureComp::EvaluateCorrelation, and says whether it has a value
/// at all: EvaluateCorrelation leaves the value that it is passed where the form has none.
/// \param component    the component; null has no value
/// \param index        one of zelCorrelations, up to 17
/// \param temperature  in the record's unit of temperatures
/// \param order        1, 2 or 3 for that derivative with respect to the temperature
/// \param value        receives the value in the unit of zelCorrelations; undefined if it has no
///                     value
/// \param derivative   receives the derivative, per the record's unit of temperatures to the power
///                     of the order; undefined if it has no value
/// \param status       receives 0 inside the range, 1 above, -1 below
/// \return true when there is a finite value; outside the range only if there is one at the end of
///         the range, from which it is extrapolated
ZEL_API bool GetCorrelationValue(IZelPureComp* component, std::uint32_t index, double temperature,
                                 std::int32_t order, double& value, double& derivative,
                                 std::int32_t& status);

// --- room in the files ---------------------------------------------------------------------------

/// The room in one file of an open library. Free runs are between used blocks and are filled by
/// later writes; the room after the last block is not among them.
struct ZelFileRoom {
  std::int32_t blockBytes = 0;  ///< Size of a block in bytes.
  std::int64_t blocks = 0;      ///< Blocks in the file.
  std::int64_t freeBlocks = 0;  ///< Blocks in free runs.
  std::int32_t freeRuns = 0;    ///< Free runs.
};

/// Reports the room in a file of a library.
/// \param library  an open library; null is a failure
/// \param file     number of the file, 1 to 9
/// \param room     receives the room; unchanged on failure
/// \return false when the library is not open or has no file of that number
ZEL_API bool GetFileRoom(LibFile* library, std::int32_t file, ZelFileRoom& room);

// --- the integrity check -------------------------------------------------------------------------

/// How bad a finding is.
enum zelFindings : std::int32_t {
  findingNote = 0,     ///< Worth knowing; nothing is wrong.
  findingWarning = 1,  ///< Data that cannot all be right, or room that is lost.
  findingDamage = 2,   ///< The library is in a state that no writer leaves.
  findingError = 3     ///< Data that cannot be used safely; only DataCheck.h reports it.
};

/// What a host implements to receive findings. It is called in the thread that made the call.
class ZEL_API ZelFindingSink {
 public:
  /// Receives a finding. Texts are never null and valid only during the call.
  /// \param severity  how bad it is
  /// \param id        names the kind of finding and is stable, e.g. "tree-order"
  /// \param place     a file, a tree, a bank or an item
  /// \param text      what is wrong
  virtual void Found(zelFindings severity, char const* id, char const* place, char const* text) = 0;

 protected:
  ~ZelFindingSink() = default;
};

/// Sets the sink for items that cannot be read.
///
/// While a library has one, walks over items skip what cannot be read: NextItem of every LibMaint
/// on it, and the exports, text dumps and lists that are made from such walks. The sink receives
/// each item (findingDamage, "item", its bank and key, the block), each ID that an export cannot
/// find out, and each text dump that cannot be written completely (findingDamage, "file", its
/// path). Without a sink the block error ends the walk. A tree that cannot be read ends it in both
/// cases.
/// \param library  an open library; null does nothing
/// \param sink     stays the host's, and may throw to end the walk; null, the default, for no sink
ZEL_API void SetItemFindings(LibFile* library, ZelFindingSink* sink);

/// Compares everything on file with everything else, without changing a byte: the header; the free
/// extents; every tree (order of keys, links all there or none, equal depth, entry counts); every
/// block, which must belong to one owner and to one only; the identifier trees and the components;
/// every item, which must decode, and which is named where it does not.
///
/// Findings are reported in the order of the walk; a damaged part is not entered. Never throws for
/// what is on file. Time and memory grow with the size of the files.
///
///     struct Printer final : zel::ZelFindingSink { void Found(...) override { ... } } printer;
///     bool const sound = zel::VerifyLibrary(library, printer);
///
/// Kinds of damage: "header", "extent", "tree-head", "tree-node", "tree-order", "tree-links",
/// "tree-depth", "block-owned-twice", "block-free-and-used", "block-behind-end", "block-address",
/// "block-unreadable", "memo", "item", "bank", "identifier-wrong". Warnings: "bank" (of an unknown
/// type), "block-leaked", "identifier-missing", "identifier-stale". Notes: "sizes", "cancelled"
/// (Progress.h).
/// \param library  an open library; null, and one that is closed, is damage of the header
/// \param sink     receives the findings
/// \return true when no damage was found and the check was not cancelled
ZEL_API bool VerifyLibrary(LibFile* library, ZelFindingSink& sink);

}  // namespace zel

#endif  // ZELACCESS_VERIFY_H
