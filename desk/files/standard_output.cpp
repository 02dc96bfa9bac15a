#include "desk/files/standard_output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "desk/words/failure.h"

namespace zel::desk {

void Write(std::string const& text) {
  if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() || std::fflush(stdout) != 0 ||
      std::ferror(stdout) != 0) {
    if (errno == EPIPE) throw PipeClosed();
    throw Failure(std::string("standard output cannot be written: ") + std::strerror(errno));
  }
}

}  // namespace zel::desk
