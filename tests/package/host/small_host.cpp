// The smallest host: asks the installed library for its bank types.
#include <zelaccess/ZelAccess.h>

int main() { return zel::GetBankTypeCount() == 50 ? 0 : 1; }
