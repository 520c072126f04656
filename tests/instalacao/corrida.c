/* A run and what comes of it: corrida DATABASE REPORT FIRST_DAY LAST_DAY COMMAND [cancel|jump] prints the result, what
   the end of the generator returned, and EBUSY or nothing. `cancel` and `jump` say how the log callback, or the register
   callback at the end of E08, leaves the run. */
#include <cotepe.h>
#include <errno.h>
#include <setjmp.h>
#include <sqlite3.h>
#include <stdio.h>
#include <string.h>

static jmp_buf outside;
static const char* way = "";

static int leave(void) {
  if (strcmp(way, "jump") == 0) longjmp(outside, 1);
  return strcmp(way, "cancel") == 0;
}

static int on_log(void* user, const char* message) {
  (void)user;
  (void)message;
  return leave();
}

static int on_register(void* user, const char* code, int64_t lines, int complete) {
  (void)lines;
  (void)complete;
  if (cotepe_destroy((cotepe_generator*)user) != COTEPE_BUSY) return 1;
  return strcmp(code, "E08") == 0 ? leave() : 0;
}

/* Far below the caller of cotepe_generate: a host need not free where it generated. */
static int destroy_far_below(cotepe_generator* generator) {
  volatile char room[4096];
  room[0] = 0;
  room[sizeof room - 1] = room[0];
  return cotepe_destroy(generator) + room[0];
}

int main(int argc, char** argv) {
  sqlite3* database = NULL;
  cotepe_generator* generator = NULL;
  volatile int result = -1;
  volatile int error = 0;
  int destroyed;
  if (argc < 6 || sqlite3_open(argv[1], &database) != SQLITE_OK) return 64;
  if (argc > 6) way = argv[6];
  if (cotepe_create(database, &generator) != COTEPE_DONE) return 65;
  if (cotepe_set_layout(generator, 2) != COTEPE_DONE) return 66;
  if (cotepe_set_log(generator, on_log, NULL) != COTEPE_DONE) return 67;
  if (cotepe_set_register_callback(generator, on_register, generator) != COTEPE_DONE) return 68;
  if (setjmp(outside) == 0) {
    errno = 0;
    result = cotepe_generate(generator, argv[2], argv[3], argv[4], argv[5]);
    error = errno;
  } else if (cotepe_generate(generator, argv[2], argv[3], argv[4], argv[5]) != COTEPE_BUSY) {
    return 69;
  }
  destroyed = destroy_far_below(generator);
  printf("%d %d%s\n", result, destroyed, result == COTEPE_CANNOT_OPEN && error == EBUSY ? " EBUSY" : "");
  sqlite3_close_v2(database);
  return 0;
}
