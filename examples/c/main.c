/* A host in C: main DATABASE REPORT FIRST_DAY LAST_DAY, days as DDMMYYYY. */
#include <cotepe.h>
#include <sqlite3.h>
#include <stdio.h>

static int on_log(void* user, const char* message) {
  fprintf(stderr, "host: %s: %s\n", message, sqlite3_errmsg((sqlite3*)user));
  return 0;
}

/* The printer's clock: this one stands still. */
static int on_clock(void* user, cotepe_time* now) {
  (void)user;
  now->year = 2024;
  now->month = 2;
  now->day = 29;
  now->hour = 8;
  now->minute = 30;
  return 0;
}

static int write_report(sqlite3* database, char** argv) {
  cotepe_generator* generator;
  int result = cotepe_create(database, &generator);
  if (result == COTEPE_DONE) result = cotepe_set_layout(generator, 2);
  if (result == COTEPE_DONE)
    result = cotepe_set_identity(generator, "BR0000000000000001", "IMPRESSORA", "ECF-IF");
  if (result == COTEPE_DONE) result = cotepe_set_log(generator, on_log, database);
  if (result == COTEPE_DONE) result = cotepe_set_clock(generator, on_clock, NULL);
  if (result == COTEPE_DONE) result = cotepe_generate(generator, argv[2], argv[3], argv[4], "TDM");
  cotepe_destroy(generator);
  return result;
}

int main(int argc, char** argv) {
  sqlite3* database = NULL;
  int result;
  if (argc != 5) return 2;
  if (sqlite3_open_v2(argv[1], &database, SQLITE_OPEN_READONLY, NULL) != SQLITE_OK) return 3;
  result = write_report(database, argv);
  sqlite3_close(database);
  printf("cotepe %s: %s\n", cotepe_version(), cotepe_result_text(result));
  return result;
}
