// An open library of the host.
#pragma once

#include <zelaccess/Handles.h>

#include <memory>
#include <string>

#include "border.h"

struct zel_library {
  std::shared_ptr<zel::LibFile> file;  // shared with the columns that read it
  zel::Handle<zel::LibMaint> maint;    // deleted before the file
};

namespace zelc {

// Refuses a library that is open for reading.
zel_library& NeedUpdate(zel_library* library);
// Refuses a bank that the library does not have.
void NeedBank(zel_library& library, std::string const& type, std::string const& name);

}  // namespace zelc
