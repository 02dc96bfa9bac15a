/// \file
/// LibMaint_p: settings and reports of maintenance beyond LibMaint.
#ifndef ZELACCESS_LIBMAINT_P_H
#define ZELACCESS_LIBMAINT_P_H

#include <cstdio>

#include "zelaccess/Interchange.h"
#include "zelaccess/LibMaint.h"

namespace zel {

/// The wider layer of maintenance: every LibMaint is one of these, which dynamic_cast returns.
/// Threads as in LibMaint; the settings are those of one object.
class ZEL_API LibMaint_p : public LibMaint {
 public:
  /// Ends the object and nulls the handle. The library stays open.
  /// \param maint  the handle; null does nothing
  static void DelLibMaint(LibMaint_p*& maint);

  /// Copies no data: these are handles.
  LibMaint_p(LibMaint_p const&) : LibMaint() {}
  /// Copies nothing.
  /// \return this object
  LibMaint_p& operator=(LibMaint_p const&) { return *this; }

  /// Sets how errors of imports and exports are reported.
  /// \param level  0, the default, is silent: the first error stops a run; 1 and 2 write log lines
  ///               to standard output and go on, 2 with bank types aligned
  virtual void SetLogLevel(std::int32_t level) = 0;
  /// Sets whether exports write the record format of a bank.
  /// \param on  true by default
  virtual void SetWriteFormat(bool on) = 0;
  /// Sets whether exports add a block for a maintenance log.
  /// \param on  false by default
  virtual void SetWriteBanner(bool on) = 0;
  /// Sets whether exports add a notice of the owners of the data.
  /// \param on  false by default
  virtual void SetWriteNotice(bool on) = 0;
  /// Sets whether exports of pure component banks write each component to a file of its own.
  /// \param on  true by default
  virtual void SetComponentFiles(bool on) = 0;
  /// Writes a report of the structure of a bank's item tree to the host's stream. The report says
  /// "passed" in any case.
  /// \param type      type keyword; null is the empty text
  /// \param name      bank name; null is the empty text
  /// \param indent    blanks before each line
  /// \param stream    remains open and owned by the host; null is a failure
  /// \param expected  number of entries that the tree should have; below 0 any number
  /// \return whether the tree has as many entries as expected; false without output when the bank
  ///         is not there
  virtual bool DumpBankTree(char const* type, char const* name, std::int32_t indent,
                            std::FILE* stream, std::int32_t expected) = 0;
  /// Sets how strictly imports check their documents.
  ///
  /// Errors and warnings name the line of the document, e.g. `line 12: <aij> "61x37" is not a
  /// number`. If a malformed number is an error, the item that contains it is not stored, or, in a
  /// component, the property, correlation or structure. A document that is not well formed is
  /// reported with its line and why.
  /// \param checks  importUnchecked by default
  virtual void SetImportChecks(zelImportChecks checks) = 0;
  /// Reports what the last import found and stored.
  /// \param counts  receives the counts; all 0 before the first import
  virtual void GetImportCounts(ZelImportCounts& counts) = 0;
  /// Sets a sink for the lines of the log that levels 1 and 2 otherwise write to standard output.
  /// Whether a run goes on after an error depends on the level. An exception that the sink throws
  /// ends the run and reaches the caller.
  /// \param sink  not owned, must outlive the runs; null, the default, for standard output
  virtual void SetLogSink(ZelLogSink* sink) = 0;
  /// Gives a component of a pure component bank another number: its record moves to the new key,
  /// and all character IDs and CAS numbers of the library that lead to the old number lead to the
  /// new one. Items of other banks that are named by the number stay as they are, and so does the
  /// same component in other banks. Throws a block error.
  /// \param bankName  bank name; null is the empty text
  /// \param from      number of the component
  /// \param to        the new number, which no item of the bank has
  /// \param text      buffer of 300 characters, receives why the call failed, empty on success; may
  ///                  be null
  /// \return false, and nothing has changed, when the bank does not have the component, the bank has
  ///         the new number, the numbers are equal, or CheckComponent refuses the component under
  ///         the new number
  virtual bool RenumberComponent(char const* bankName, std::int32_t from, std::int32_t to,
                                 char* text) = 0;

 protected:
  LibMaint_p() = default;
  ~LibMaint_p() override;
};

}  // namespace zel

#endif  // ZELACCESS_LIBMAINT_P_H
