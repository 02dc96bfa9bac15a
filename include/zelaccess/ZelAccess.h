/// \file
/// What a host includes: the public headers, except those whose name ends in _p, which are for
/// drivers of banks, and the tools of Verify.h, DataCheck.h, Identity.h and Interchange.h.

/// \namespace zel
/// The public interface of ZelAccess.
#ifndef ZELACCESS_ZELACCESS_H
#define ZELACCESS_ZELACCESS_H

#include "zelaccess/Banks.h"
#include "zelaccess/BlockError.h"
#include "zelaccess/Casn.h"
#include "zelaccess/CompList.h"
#include "zelaccess/Handles.h"
#include "zelaccess/Key.h"
#include "zelaccess/LibFile.h"
#include "zelaccess/LibMaint.h"
#include "zelaccess/LibSearch.h"
#include "zelaccess/Module.h"
#include "zelaccess/PureComp.h"
#include "zelaccess/Types.h"
#include "zelaccess/Version.h"

#endif  // ZELACCESS_ZELACCESS_H
