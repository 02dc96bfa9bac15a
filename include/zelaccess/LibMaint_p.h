// LibMaint_p: settings and reports of maintenance beyond LibMaint.
#ifndef ZELACCESS_LIBMAINT_P_H
#define ZELACCESS_LIBMAINT_P_H

#include <cstdio>

#include "zelaccess/Interchange.h"
#include "zelaccess/LibMaint.h"

namespace zel {

class ZEL_API LibMaint_p : public LibMaint {
 public:
  static void DelLibMaint(LibMaint_p*& maint);

  LibMaint_p(LibMaint_p const&) : LibMaint() {}
  LibMaint_p& operator=(LibMaint_p const&) { return *this; }

  // 0 silent: the first error stops a run. 1 and 2 write log lines to standard output and go on.
  virtual void SetLogLevel(std::int32_t level) = 0;
  // Switches of the export; they start as on, off, off, on.
  virtual void SetWriteFormat(bool on) = 0;
  virtual void SetWriteBanner(bool on) = 0;
  virtual void SetWriteNotice(bool on) = 0;
  virtual void SetComponentFiles(bool on) = 0;
  // Writes a report of the structure of a bank's item tree to the host's stream. With `expected` of
  // 0 or more gives whether the tree has so many entries; the report says "passed" in any case.
  // False without output when the bank is not there.
  virtual bool DumpBankTree(char const* type, char const* name, std::int32_t indent,
                            std::FILE* stream, std::int32_t expected) = 0;
  // How closely imports look at their documents; it starts as importUnchecked. Errors and warnings
  // name the line of the document, e.g. `line 12: <aij> "61x37" is not a number`. What a malformed
  // number stands in is not stored when it is an error: the item, or the property, correlation or
  // structure of a component. A document that is not well formed is reported with its line and why.
  virtual void SetImportChecks(zelImportChecks checks) = 0;
  // Of the last import; all 0 before the first.
  virtual void GetImportCounts(ZelImportCounts& counts) = 0;
  // The sink gets the lines of the log that levels 1 and 2 write to standard output otherwise;
  // whether a run goes on after an error is a matter of the level. Null, as at first, for standard
  // output. Not owned; it must outlive the runs. What it throws ends the run and reaches the
  // caller.
  virtual void SetLogSink(ZelLogSink* sink) = 0;

 protected:
  LibMaint_p() = default;
  ~LibMaint_p() override;
};

}  // namespace zel

#endif  // ZELACCESS_LIBMAINT_P_H
