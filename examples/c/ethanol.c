/* Ethanol from three libraries, in C99: a constant with its source, values of a correlation, the
   parameters of a pair, the pairs of a model by columns, an edit, and an error. The libraries crc.lb1,
   perry.lb1 and sample.lb1 are in the current folder. */
#include <zelaccess/zel.h>

#include <stdio.h>
#include <stdlib.h>

/* Ends the program with the reason of a failure. */
static void need(zel_status status) {
  char name[40], reason[1024];
  if (status == ZEL_OK) return;
  zel_status_name(status, name, sizeof name, NULL);
  zel_reason(reason, sizeof reason, NULL);
  fprintf(stderr, "%s: %s\n", name, reason);
  exit(1);
}

static void show_component(zel_component const* ethanol) {
  char name[41], cas[16], source[80];
  zel_constant nbp;
  need(zel_component_text(ethanol, ZEL_TEXT_NAME, name, sizeof name, NULL));
  need(zel_component_text(ethanol, ZEL_TEXT_CAS, cas, sizeof cas, NULL));
  printf("%s %s\n", name, cas);
  need(zel_component_constant(ethanol, "NBP", "degC", &nbp));
  need(zel_component_constant_text(ethanol, "NBP", ZEL_TEXT_SOURCE, source, sizeof source, NULL));
  printf("boils at %.2f C, from %s\n", nbp.value, source);
}

static void show_pressures(zel_component const* ethanol) {
  double const temperatures[] = {25.0, 78.3};
  double pressures[2], slopes[2];
  zel_evaluation how = {sizeof(zel_evaluation), "bar", "degC", 1};
  zel_evaluator* pressure = NULL;
  need(zel_evaluator_new(ethanol, "VaporPressure", &how, &pressure));
  need(zel_evaluator_batch(pressure, 2, temperatures, pressures, slopes, NULL, ZEL_BATCH_EXACT));
  printf("%.4f and %.4f bar, %.5f and %.5f bar/K\n", pressures[0], pressures[1], slopes[0],
         slopes[1]);
  need(zel_evaluator_free(&pressure));
}

static void show_pair(zel_search* search) {
  double bij;
  zel_item* pair = NULL;
  need(zel_search_pair(search, "NRTL", "WATER", "ETHANOL", &pair));
  need(zel_item_value(pair, "bij", &bij));
  printf("bij %.3f K\n", bij);
  need(zel_item_free(&pair));
}

/* Reads the pairs of a model 16 at a time. */
static void show_columns(void) {
  int32_t keys[32];
  double alpha[16], sum = 0.0;
  size_t read, pairs = 0;
  zel_library* library = NULL;
  zel_columns* columns = NULL;
  need(zel_library_open("sample.lb1", NULL, &library));
  need(zel_columns_open(library, "NRTL", "SAMPLE", &columns));
  need(zel_columns_add_keys(columns, keys, 32));
  need(zel_columns_add_reals(columns, "alphaij", alpha, 16));
  for (;;) {
    need(zel_columns_read(columns, 16, &read));
    if (read == 0) break;
    for (size_t i = 0; i < read; ++i) sum += alpha[i];
    pairs += read;
  }
  printf("%u pairs, mean alphaij %.5f\n", (unsigned)pairs, sum / (double)pairs);
  need(zel_columns_close(&columns));
  need(zel_library_close(&library));
}

/* A change that is dropped at the end. */
static void show_edit(void) {
  char const* const words[] = {"ETHANOL", "NBP=78.31C"};
  size_t before, after;
  double old_value, new_value;
  zel_change* change = NULL;
  zel_table* rows = NULL;
  need(zel_change_begin("crc.lb1", NULL, &change));
  need(zel_change_edit(change, words, 2, &rows));
  need(zel_table_column(rows, "old", &before));
  need(zel_table_column(rows, "new", &after));
  need(zel_table_number(rows, 0, before, &old_value));
  need(zel_table_number(rows, 0, after, &new_value));
  printf("NBP from %.2f to %.2f K\n", old_value, new_value);
  need(zel_table_free(&rows));
  need(zel_change_drop(&change));
}

int main(void) {
  char const* const libraries[] = {"crc.lb1", "perry.lb1", "sample.lb1"};
  char version[20], reason[1024];
  zel_search* search = NULL;
  zel_component* component = NULL;
  need(zel_version(version, sizeof version, NULL));
  printf("version %s\n", version);
  need(zel_search_open(libraries, 3, NULL, &search));
  need(zel_search_component(search, "ETHANOL", &component));
  show_component(component);
  show_pressures(component);
  need(zel_component_free(&component));
  show_pair(search);
  show_columns();
  if (zel_search_component(search, "ETHANLO", &component) != ZEL_MISSING_COMPONENT) return 1;
  need(zel_reason(reason, sizeof reason, NULL));
  printf("%s\n", reason);
  need(zel_search_close(&search)); /* no reader may have a library that is changed */
  show_edit();
  return 0;
}
