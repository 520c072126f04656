/* A host in C: main DATABASE REPORT FIRST_DAY LAST_DAY, days as DDMMYYYY. */
#include <cotepe.h>
#include <stdio.h>

static int on_log(void* user, const char* message) {
  fprintf(stderr, "host: %s: %s\n", message, cotepe_reason((const cotepe_generator*)user));
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

static int write_report(const char* database, const char* report, const char* first_day,
                        const char* last_day) {
  cotepe_generator* generator;
  int result = cotepe_open(database, 5000, &generator);
  if (result == COTEPE_DONE) result = cotepe_set_layout(generator, 2);
  if (result == COTEPE_DONE)
    result = cotepe_set_identity(generator, "BR0000000000000001", "IMPRESSORA", "ECF-IF");
  if (result == COTEPE_DONE) result = cotepe_set_log(generator, on_log, generator);
  if (result == COTEPE_DONE) result = cotepe_set_clock(generator, on_clock, NULL);
  if (result == COTEPE_DONE) result = cotepe_generate_whole(generator, report, first_day, last_day, "TDM", 1);
  if (result != COTEPE_DONE)
    fprintf(stderr, "host: %s %s\n", cotepe_result_text(result), cotepe_reason(generator));
  cotepe_destroy(generator);
  return result;
}

int main(int argc, char** argv) {
  int result = 2;
  if (argc == 5) result = write_report(argv[1], argv[2], argv[3], argv[4]);
  printf("cotepe %s: %s\n", cotepe_version(), cotepe_result_text(result));
  return result;
}
