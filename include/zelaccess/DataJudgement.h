/// \file
/// DataJudgement: finds the data that are most likely wrong. Where DataCheck.h reports each rule
/// that data break, this weighs all comparisons of a substance: of its data with each other,
/// between libraries, and with similar substances. It names the datum that explains most of what
/// disagrees, with a strength and the evidence.
///
///     struct Printer final : zel::ZelDataFindingSink {
///       void Found(zel::zelFindings, char const*, char const*, char const*) override {}
///       void FoundData(zel::ZelDataFinding const& found) override
///       {
///         std::printf("%.2f %s %s: %s\n", found.strength, found.place, found.datum, found.text);
///       }
///     } printer;
///     zel::ZelCheckedLibrary const libraries[] = {{own, nullptr}, {crc, nullptr}};
///     zel::JudgeLibraryData(libraries, 2, {}, printer);
///
/// GetDataRules may be called by any thread at any time; JudgeLibraryData follows the thread rules
/// of the libraries that it is passed (LibFile.h).
#ifndef ZELACCESS_DATAJUDGEMENT_H
#define ZELACCESS_DATAJUDGEMENT_H

#include "zelaccess/DataCheck.h"

namespace zel {

/// A rule by which data are compared. Texts are never null. Several rules can have one ID.
struct ZelDataRule {
  char const* id;         ///< Names the rule and is stable, "vapor-pressure" for example.
  char const* formula;    ///< What is compared, as a text: "p(NBP) = 101.325 kPa".
  char const* tolerance;  ///< How far correct data may differ, and the source of that.
};

/// Returns the rules by which JudgeLibraryData compares.
/// \param count  receives their number
/// \return a constant table, valid for the life of the module; never null
ZEL_API ZelDataRule const* GetDataRules(std::int32_t& count);

/// Selects what is judged and reported.
struct ZelJudgementOptions {
  /// IDs of rules that are not used; null for none. Null elements and unknown IDs are ignored.
  char const* const* silent = nullptr;
  std::int32_t silentCount = 0;  ///< Number of IDs in `silent`; none below 1.
  double minStrength = 0.5;      ///< Weaker findings are not reported.
};

/// Judges the data of all components of libraries. A finding has a strength, a fingerprint and
/// evidence; its datum is the one that is most likely wrong, in the library that has it, and its ID
/// is that of the rule that it breaks most. Each library's findings are reported in order of
/// falling strength. Changes nothing.
///
/// Components are the same substance if they have the same CAS number; without one, if they have
/// the same number or an ID in common, and no other formula. An item or a bank that cannot be read
/// is left out and reported (findingDamage, "item", its place); no block error is thrown. Throws
/// std::bad_alloc, and what the sink throws. Time and memory grow with the number of components.
/// \param libraries  the libraries; one that is null or closed is damage of the header and left
///                   out; a null array is damage of the header unless `count` is below 1
/// \param count      their number; below 1 there is nothing to judge
/// \param options    what is reported
/// \param sink       receives the findings
/// \return true when no damage was reported, and the judgement was not cancelled
ZEL_API bool JudgeLibraryData(ZelCheckedLibrary const* libraries, std::int32_t count,
                              ZelJudgementOptions const& options, ZelDataFindingSink& sink);

}  // namespace zel

#endif  // ZELACCESS_DATAJUDGEMENT_H
