/// \file
/// CompListBuild_p: the steps of a list build, for hosts that make lists of their own.
#ifndef ZELACCESS_COMPLIST_P_H
#define ZELACCESS_COMPLIST_P_H

#include "zelaccess/Casn.h"
#include "zelaccess/CompList.h"

namespace zel {

/// Every builder is one of these, which dynamic_cast returns. Rows are added, then sorted, then
/// written. Threads as for the list.
class ZEL_API CompListBuild_p : public CompListBuild {
 public:
  /// Copies no data: builders are handles.
  CompListBuild_p(CompListBuild_p const&) : CompListBuild() {}
  /// Copies nothing.
  /// \return this object
  CompListBuild_p& operator=(CompListBuild_p const&) { return *this; }

  /// Tidies the texts of a component in place.
  /// \param name           buffer of 41 characters; null is a failure
  /// \param ids            12 buffers of 9 characters, of which the IDs worth listing move to the
  ///                       front; null is a failure
  /// \param idCount        receives the number of IDs that are left
  /// \param formula        buffer of 21 characters; null is a failure
  /// \param secondFormula  buffer of 21 characters, which receives the normal form where that
  ///                       differs from a formula that stays as written: because of `keepFormula`,
  ///                       or because it has no carbon and hydrogen; may be null
  /// \param keepFormula    not 0: the formula is kept as written
  /// \param formulaResult  receives 2 where there is a second formula, else 1
  /// \param casNumber      the CAS number as one integer; set to 0 where it is not valid
  /// \return true when the component has an ID left and so is worth listing
  virtual bool CleanRecord(char* name, char (*ids)[9], std::int32_t& idCount, char* formula,
                           char* secondFormula, std::uint8_t keepFormula,
                           std::int32_t& formulaResult, std::int32_t& casNumber) = 0;
  /// Adds the row of a component.
  /// \param name     name; null is the empty text
  /// \param id       first character ID; null is the empty text
  /// \param formula  formula; null is the empty text
  /// \param cas      CAS number
  /// \param nbp      normal boiling point, K
  /// \param mw       molecular weight, kg/kg-mol
  virtual void AddRecord(char const* name, char const* id, char const* formula, casn cas,
                         double nbp, double mw) = 0;
  /// Adds rows of further IDs of the component added last.
  /// \param count  number of IDs
  /// \param ids    the IDs; null adds none
  virtual void AddIds(std::int32_t count, char const (*ids)[9]) = 0;
  /// Adds the row of a further ID of the component added last.
  /// \param id  the ID; null is the empty text
  virtual void AddId(char const* id) = 0;
  /// Adds the row of a further formula of the component added last; does nothing in the short form.
  /// \param formula  the formula; null is the empty text
  virtual void AddFormula(char const* formula) = 0;
  /// Fills the list and its six orders.
  virtual void SortRecords() = 0;
  /// Writes the list file, as CompListBuild::BuildList does.
  /// \param path  the file; an existing one is emptied and rewritten, also through a symbolic link;
  ///              null and the empty path write no file
  /// \return false when the file cannot be written
  virtual bool WriteList(char const* path) = 0;
  /// Counts the rows of the list.
  /// \return the number of rows, further IDs and formulas included
  virtual std::int32_t CountOrders() = 0;
  /// Copies the line of a row. Throws std::out_of_range for a row that does not exist.
  /// \param row   number of the row from 0
  /// \param text  buffer of 1000 characters; null does nothing
  virtual void FormatRecord(std::int32_t row, char* text) = 0;
  /// Selects the short form. Must be called before rows are added.
  /// \param on  true for five columns instead of twelve
  virtual void SetShortForm(bool on) = 0;
  /// Reports how long the last build took.
  /// \param total  receives the seconds for walking the library
  /// \param sort   receives the seconds for sorting the rows
  /// \param order  receives the seconds for making the orders
  virtual void GetTimes(double& total, double& sort, double& order) const = 0;

 protected:
  CompListBuild_p() = default;
  ~CompListBuild_p() override;
};

}  // namespace zel

#endif  // ZELACCESS_COMPLIST_P_H
