// CompListBuild_p: the steps of a list build, for hosts that make lists of their own.
#ifndef ZELACCESS_COMPLIST_P_H
#define ZELACCESS_COMPLIST_P_H

#include "zelaccess/Casn.h"
#include "zelaccess/CompList.h"

namespace zel {

// Every builder is one of these: dynamic_cast leads here. Rows are added, then sorted, then
// written.
class ZEL_API CompListBuild_p : public CompListBuild {
 public:
  CompListBuild_p(CompListBuild_p const&) : CompListBuild() {}
  CompListBuild_p& operator=(CompListBuild_p const&) { return *this; }

  // Tidies a component: name (41 characters), 12 IDs (9), formula (21); `secondFormula` (21) gets
  // the normal form where it must be told apart from the formula, and `formulaResult` is 2 then,
  // else 1; it may be null. True when the component has an ID left and so is worth listing.
  virtual bool CleanRecord(char* name, char (*ids)[9], std::int32_t& idCount, char* formula,
                           char* secondFormula, std::uint8_t keepFormula,
                           std::int32_t& formulaResult, std::int32_t& casNumber) = 0;
  virtual void AddRecord(char const* name, char const* id, char const* formula, casn cas,
                         double nbp, double mw) = 0;
  // Further IDs, and a further formula, of the component added last.
  virtual void AddIds(std::int32_t count, char const (*ids)[9]) = 0;
  virtual void AddId(char const* id) = 0;
  virtual void AddFormula(char const* formula) = 0;
  // Fills the list and its six orders.
  virtual void SortRecords() = 0;
  // As BuildList writes it.
  virtual bool WriteList(char const* path) = 0;
  // The number of rows of the list, further IDs and formulas included.
  virtual std::int32_t CountOrders() = 0;
  // The line of a row, at most 999 characters. Throws std::out_of_range for a row past the end.
  virtual void FormatRecord(std::int32_t row, char* text) = 0;
  // Five columns instead of twelve; to be set before rows are added.
  virtual void SetShortForm(bool on) = 0;
  // Seconds for walking the library, sorting the rows and making the orders.
  virtual void GetTimes(double& total, double& sort, double& order) const = 0;

 protected:
  CompListBuild_p() = default;
  ~CompListBuild_p() override;
};

}  // namespace zel

#endif  // ZELACCESS_COMPLIST_P_H
