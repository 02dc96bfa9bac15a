// What a host includes: all public headers but those whose name ends in _p, which are for drivers
// of banks.
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
