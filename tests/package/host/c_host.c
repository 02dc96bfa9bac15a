/* The smallest host in C: gets the version of the library and the bank types. */
#include <zelaccess/zel.h>

#include <string.h>

int main(void) {
  char version[20];
  size_t rows = 0;
  zel_table* types = NULL;
  if (zel_start() != ZEL_OK || zel_list_bank_types(&types) != ZEL_OK) return 1;
  if (zel_table_size(types, &rows, NULL) != ZEL_OK || rows != 50) return 2;
  if (zel_table_free(&types) != ZEL_OK || types != NULL) return 3;
  if (zel_version(version, sizeof version, NULL) != ZEL_OK) return 4;
  return strcmp(version, PACKAGE_VERSION) == 0 ? 0 : 5;
}
