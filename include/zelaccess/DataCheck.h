/// \file
/// DataCheck: checks whether the data of libraries are plausible: values that cannot all be right
/// although each of them can be stored. VerifyLibrary (Verify.h) checks the structure of the files;
/// call that first.
///
///     struct Printer final : zel::ZelDataFindingSink {
///       void Found(zel::zelFindings, char const* id, char const* place, char const* text) override
///       {
///         std::printf("%s %s: %s\n", id, place, text);
///       }
///     } printer;
///     zel::CheckLibraryData({library, nullptr}, {}, printer);
///
/// GetDataChecks may be called by any thread at any time; the other functions follow the thread
/// rules of the libraries that they are passed (LibFile.h).
#ifndef ZELACCESS_DATACHECK_H
#define ZELACCESS_DATACHECK_H

#include <cstdint>

#include "zelaccess/Types.h"
#include "zelaccess/Verify.h"

namespace zel {

/// A check of data. Texts are never null.
struct ZelDataCheck {
  char const* id;        ///< Names the check and is stable, "formula-weight" for example.
  char const* rule;      ///< What the data must satisfy, as a text for people.
  zelFindings severity;  ///< findingWarning or findingError; see also "equation".
};

/// Returns the checks of data. A finding of "equation" is an error if the correlation has no value
/// within its range, and a warning otherwise.
/// \param count  receives their number
/// \return a constant table, valid for the life of the module; never null
ZEL_API ZelDataCheck const* GetDataChecks(std::int32_t& count);

/// Selects what is reported; by default everything is.
struct ZelDataCheckOptions {
  /// IDs of checks that are not reported; null for none. Null elements and IDs that GetDataChecks
  /// does not have are ignored. Damage is always reported.
  char const* const* silent = nullptr;
  std::int32_t silentCount = 0;  ///< Number of IDs in `silent`; none below 1.
  bool acceptIdentity = false;   ///< A finding of "identity" is a warning, not an error.
};

/// A comparison that makes a datum suspect (DataJudgement.h). Texts as in ZelDataFinding.
struct ZelDataEvidence {
  char const* rule = "";                   ///< ID of the rule.
  char const* library = "";                ///< Library of the value.
  char const* place = "";                  ///< Bank and item of the value.
  char const* datum = "";                  ///< Datum of the value; not always that of the finding.
  double value = gen_GetUndefDouble();     ///< The value, in `unit`.
  double expected = gen_GetUndefDouble();  ///< What it is compared with, in `unit`.
  char const* unit = "";                   ///< Unit of both; empty for pure numbers.
  double temperature = gen_GetUndefDouble();  ///< Temperature in K, of the value of a correlation.
  double deviation = 0.0;   ///< The difference in tolerances of the rule; above 1.
  char const* source = "";  ///< Origin of the expected value: "the latent heat at NBP", a library.
};

/// What is wrong with a datum. Texts are never null, and valid only during the call; numbers that
/// do not apply are undefined (Types.h), and texts that do not apply are empty.
struct ZelDataFinding {
  /// findingWarning, findingError or findingDamage; findingNote only for "cancelled" (Progress.h).
  zelFindings severity = findingWarning;
  /// ID of the check; "header" or "item" for damage; "cancelled" when the host cancelled the check.
  char const* id = "";
  char const* library = "";           ///< Name of the library (ZelCheckedLibrary).
  char const* bankType = "";          ///< Type of the bank, "PURECOMP" for example.
  char const* bankName = "";          ///< Name of the bank.
  std::int32_t const* key = nullptr;  ///< Key words of the item on file; null for none.
  std::int32_t keyWords = 0;          ///< Number of key words.
  /// The item as a text: the first ID of a component, or its number if it has none; "1 + 2" for a
  /// pair; "group 9".
  char const* item = "";
  /// Bank and item as messages name them: "CRC ACETONE", "NRTL:VLE 1 + 2".
  char const* place = "";
  /// The datum: the keyword of a constant, the name of a correlation, the name of a field, "CAS
  /// number", "formula", "identity", "groups". Several of these are separated by blanks or " and ".
  char const* datum = "";
  double value = gen_GetUndefDouble();  ///< The value, in `unit`; undefined if it is not a number.
  char const* valueText = "";           ///< The value as a text, numbers with 7 digits.
  char const* unit = "";                ///< Unit of the numbers; empty for a pure number.
  /// Temperature in K, of the value of a correlation.
  double temperature = gen_GetUndefDouble();
  /// Bounds of the expected value, before the tolerance of the rule; equal if one value is
  /// expected; an undefined one does not bound it.
  double expectedMin = gen_GetUndefDouble();
  double expectedMax = gen_GetUndefDouble();  ///< See expectedMin.
  char const* expectedText = "";  ///< The expected value as a text, "0.15 to 0.40" for example.
  /// Where the data are that this is compared with, if not in the same item: a component of the
  /// bank as `place` names it, a library, a bank of a library ("crc.lb1:CRC"), a bank
  /// ("UNFORIG:G").
  char const* against = "";
  char const* text = "";  ///< The sentence made from this, without library and place.
  /// How likely the datum is wrong, 0 to 1: 1 for what is certainly wrong (errors and damage).
  double strength = 1.0;
  /// 16 digits that identify the finding. They are the same as long as the bank, the item, the
  /// datum and what is stored for it are the same, and the check, if the finding has no evidence.
  /// Empty for damage.
  char const* fingerprint = "";
  ZelDataEvidence const* evidence = nullptr;  ///< Comparisons, the worst first; null for none.
  std::int32_t evidenceCount = 0;             ///< Their number.
};

/// What a host implements to receive findings about data. It is called in the thread that made the
/// call, and may throw to end it.
class ZEL_API ZelDataFindingSink : public ZelFindingSink {
 public:
  /// Receives a finding. Unless overridden, it passes severity, ID, place and text to Found.
  /// \param finding  valid only during the call
  virtual void FoundData(ZelDataFinding const& finding) {
    Found(finding.severity, finding.id, finding.place, finding.text);
  }
  /// Reports progress through the components of a bank. Unless overridden, it does nothing.
  /// \param library  name of the library; never null, valid only during the call
  /// \param bank     "PURECOMP:CRC"; never null, valid only during the call
  /// \param done     components that were checked, 0 in the first call for a bank, `total` in the
  ///                 last one
  /// \param total    components of the bank
  virtual void Checked(char const* library, char const* bank, std::int64_t done,
                       std::int64_t total) {
    static_cast<void>(library);
    static_cast<void>(bank);
    static_cast<void>(done);
    static_cast<void>(total);
  }

 protected:
  ~ZelDataFindingSink() = default;
};

/// A library to check.
struct ZelCheckedLibrary {
  LibFile* library = nullptr;  ///< An open library; stays the host's.
  /// Its name in findings; stays the host's; null for the display name (LibFile::GetLibName).
  char const* name = nullptr;
};

/// Checks the data of a library: each component by itself, the components of each bank with each
/// other, banks of pairs and of groups. Changes nothing.
///
/// Findings are reported bank by bank. Data that are missing are not findings, except for CAS
/// numbers and reference codes. An item or a bank that cannot be read is left out and reported
/// (findingDamage, "item", its place); no block error is thrown. Throws std::bad_alloc, and what
/// the sink throws. Time grows with the size of the library, memory with its components.
/// \param library  the library; one that is null or closed is damage of the header
/// \param options  what is reported
/// \param sink     receives the findings
/// \return true when no error and no damage was reported, and the check was not cancelled
ZEL_API bool CheckLibraryData(ZelCheckedLibrary const& library, ZelDataCheckOptions const& options,
                              ZelDataFindingSink& sink);

/// Checks one component in memory by itself: the checks of CheckLibraryData that need no other
/// item. With it a host can check a component that it has read, or is about to write. Throws
/// std::bad_alloc, and what the sink throws.
/// \param component  a component that NewBank made or that was read into one; null, and a component
///                   of a class of the host, are not checked
/// \param library    name of its library in findings; null for none
/// \param bank       name of its bank in findings; null for none
/// \param options    what is reported
/// \param sink       receives the findings
/// \return true when no error was reported
ZEL_API bool CheckComponentData(IZelPureComp* component, char const* library, char const* bank,
                                ZelDataCheckOptions const& options, ZelDataFindingSink& sink);

/// Compares the data of libraries: components with the same number, ID or CAS number must be the
/// same substance in all banks of all libraries ("identity"), and constants and vapor pressures of
/// the same substance must agree between each two libraries ("magnitude", "boiling-point"). What
/// CheckLibraryData reports is not reported again. Changes nothing.
///
/// Unreadable items and exceptions are as above. Time grows with the square of the number of
/// libraries.
/// \param libraries  the libraries; one that is null or closed is damage of the header and left
///                   out; a null array is damage of the header unless `count` is below 1
/// \param count      their number; below 1 there is nothing to compare
/// \param options    what is reported
/// \param sink       receives the findings
/// \return true when no error and no damage was reported, and the check was not cancelled
ZEL_API bool CompareLibraryData(ZelCheckedLibrary const* libraries, std::int32_t count,
                                ZelDataCheckOptions const& options, ZelDataFindingSink& sink);

}  // namespace zel

#endif  // ZELACCESS_DATACHECK_H
