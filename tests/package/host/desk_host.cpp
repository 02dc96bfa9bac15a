// The smallest host of the desk: an error has file and reason.
#include <zelaccess/Desk.h>

int main() {
  try {
    zel::desk::Libraries libraries({"none.lb1"});
  } catch (zel::desk::OpenError const& error) {
    return error.File() == "none.lb1" && error.Reason() == "not found" ? 0 : 1;
  }
  return 2;
}
