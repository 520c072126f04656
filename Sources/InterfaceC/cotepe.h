/** @file
   The generator of the type-E register file (Ato COTEPE/ICMS 17/04) for hosts in C and in languages that call
   C. Link with libcotepe; nothing else of the host is needed at link time. */
#ifndef COTEPE_H
#define COTEPE_H

#include <stdint.h> /* NOLINT(modernize-deprecated-headers): C has no other. */

/** No function throws. */
#if defined(__cplusplus) && __cplusplus >= 201103L
#define COTEPE_NOEXCEPT noexcept
#elif defined(__cplusplus)
#define COTEPE_NOEXCEPT throw()
#else
#define COTEPE_NOEXCEPT
#endif

/** What the shared library exports. Code that links the static one on Windows defines COTEPE_STATIC. */
#if defined(_WIN32) && defined(COTEPE_EXPORTS)
#define COTEPE_API __declspec(dllexport)
#elif defined(_WIN32) && !defined(COTEPE_STATIC)
#define COTEPE_API __declspec(dllimport)
#elif defined(__GNUC__) && !defined(_WIN32)
#define COTEPE_API __attribute__((visibility("default")))
#else
#define COTEPE_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* NOLINTBEGIN(modernize-use-using): C has only typedef. */
struct sqlite3;

/** A generator over one database: its settings and its callbacks. Generators are independent of each other
   and share nothing: several may run at once on different threads, each over its own connection. A generator
   runs one report at a time; a call on it from within one of its own callbacks, or from another thread while
   it runs, does nothing and returns COTEPE_BUSY. */
typedef struct cotepe_generator cotepe_generator;

/** What a function returns; cotepe_result_text describes it. */
enum cotepe_result {
  COTEPE_DONE = 0,
  COTEPE_INCOMPLETE = 1,   /**< the report is there, but a register's query failed: it may lack lines */
  COTEPE_BAD_ARGUMENT = 2, /**< a null pointer, an invalid date, days in reverse order, or an unknown command;
                              nothing was done */
  COTEPE_CANNOT_OPEN = 3,  /**< the report could not be opened for writing; errno says why. EBUSY: it is the
                              database or its journal; nothing was done */
  COTEPE_CANNOT_WRITE = 4, /**< the report is incomplete: disk full, I/O error, out of memory */
  COTEPE_NO_IDENTITY = 5,  /**< the printer's identity could not be read; the report is empty */
  COTEPE_NO_MEMORY = 6,    /**< out of memory outside a run; nothing was changed */
  COTEPE_BUSY = 7,         /**< the generator is running; nothing was changed */
  COTEPE_BAD_TIME = 8,     /**< the clock gave no valid date/time; the report is empty */
  COTEPE_CALLBACK_FAILED = 9, /**< a C++ exception left a callback; the report is empty */
  COTEPE_CANCELLED = 10,      /**< a callback ended the run; the report is empty */
  COTEPE_CANNOT_READ = 11,    /**< the database cannot be opened or read; nothing was done */
  COTEPE_LOCKED = 12,         /**< the database was locked for longer than the time given; nothing was done */
  COTEPE_NOT_A_DATABASE = 13  /**< the file is not an SQLite database, or is damaged; nothing was done */
};

/** Local time: a day that exists, of the years 1 to 9999. */
typedef struct cotepe_time {
  int year;   /**< with the century */
  int month;  /**< 1 to 12 */
  int day;    /**< from 1 */
  int hour;   /**< 0 to 23 */
  int minute; /**< 0 to 59 */
  int second; /**< 0 to 59 */
} cotepe_time;

/* Each callback receives the pointer that was set with it, and is called on the thread that runs
   cotepe_generate. It returns 0 to continue the run; anything else ends it with COTEPE_CANCELLED. Texts
   belong to the generator and are valid only during the call. A callback must return: neither longjmp nor an
   exception of another language may leave it, since whatever the run has open would stay open. */

/** One message of one line, when a query failed; cotepe_reason says why. */
typedef int (*cotepe_log_callback)(void* user, const char* message);

/** Fills in the current time. *now is all zeros at first, which is not a valid time: left so, the run ends
   with COTEPE_BAD_TIME. */
typedef int (*cotepe_clock_callback)(void* user, cotepe_time* now);

/** The end of a register such as "E14": how many lines it wrote, and whether each of its queries ended
   normally (1) or not (0). */
typedef int (*cotepe_register_callback)(void* user, const char* code, int64_t lines, int complete);

/** Makes a generator over the database of that name, in UTF-8, which it opens itself, read-only: the host's
   SQLite is not involved. Each report shows one committed state. `busy_timeout`: the maximum number of
   milliseconds to wait for a lock. *generator is null when it fails; for COTEPE_CANNOT_READ errno says why
   if the file does not exist or may not be read. Settings as in cotepe_create. */
COTEPE_API int cotepe_open(const char* database, int busy_timeout,
                           cotepe_generator** generator) COTEPE_NOEXCEPT;

/** Makes a generator over an open database, which still belongs to the host: it is only read, never closed,
   and must outlive the generator. It must come from the same SQLite library that libcotepe is linked with.
   Layout 1, CAT52 mode off, no identity, no log, the system's local time. *generator is null when it
   fails. */
COTEPE_API int cotepe_create(struct sqlite3* database, cotepe_generator** generator) COTEPE_NOEXCEPT;

/** Ends a generator; null is ignored. During one of its runs nothing is done and COTEPE_BUSY is returned.
   After a run that longjmp left all the same it is freed too, on the thread of that run: the report is
   closed and left empty. */
COTEPE_API int cotepe_destroy(cotepe_generator* generator) COTEPE_NOEXCEPT;

/** Layout version. 1: document counters of 6 digits. Any other value: of 9 digits. Exactly 2 adds the fields
   of layout 2 and register E22. */
COTEPE_API int cotepe_set_layout(cotepe_generator* generator, int version) COTEPE_NOEXCEPT;

/** CAT52 mode, on for any value but 0: no placeholder records for registers without a row, no texts in
   E14. */
COTEPE_API int cotepe_set_cat52(cotepe_generator* generator, int on) COTEPE_NOEXCEPT;

/** What the host knows about the printer, copied; null means unknown. What the database has takes
   precedence. */
COTEPE_API int cotepe_set_identity(cotepe_generator* generator, const char* serial, const char* model,
                                   const char* type) COTEPE_NOEXCEPT;

/** Where messages go; null removes the callback, and messages are dropped. */
COTEPE_API int cotepe_set_log(cotepe_generator* generator, cotepe_log_callback callback,
                              void* user) COTEPE_NOEXCEPT;

/** The callback for the end of each register; null removes it. */
COTEPE_API int cotepe_set_register_callback(cotepe_generator* generator, cotepe_register_callback callback,
                                            void* user) COTEPE_NOEXCEPT;

/** Where E11's time of generation comes from: this callback, instead of a fixed time set before; null means
   the system's local time. */
COTEPE_API int cotepe_set_clock(cotepe_generator* generator, cotepe_clock_callback callback,
                                void* user) COTEPE_NOEXCEPT;

/** E11's time of generation, copied, instead of a callback set before; null means the system's local time.
   An invalid date/time returns COTEPE_BAD_TIME and changes nothing. */
COTEPE_API int cotepe_set_time(cotepe_generator* generator, const cotepe_time* time) COTEPE_NOEXCEPT;

/** Writes the report of a period to the named file, which is created or truncated: one record per line, LF
   line endings. The first and last day are DDMMYYYY, both included, and in order. The command is "MF",
   "MFD", "TDM" or "RZ". A register whose query fails is logged and the run goes on. */
COTEPE_API int cotepe_generate(cotepe_generator* generator, const char* report, const char* first_day,
                               const char* last_day, const char* command) COTEPE_NOEXCEPT;

/** As cotepe_generate, but the report appears under its name only when it is complete and on disk: until
   then it is written under a temporary name in the same folder, .NAME.cotepe-XXXXXX.tmp. With any result
   other than COTEPE_DONE no file of that name is touched; so COTEPE_INCOMPLETE and COTEPE_CANCELLED leave
   nothing. `replace`: 0 to refuse to replace an existing file, with COTEPE_CANNOT_OPEN and EEXIST in
   errno. */
COTEPE_API int cotepe_generate_whole(cotepe_generator* generator, const char* report, const char* first_day,
                                     const char* last_day, const char* command, int replace) COTEPE_NOEXCEPT;

/** Why the last query failed, or the report could not be opened or written, in the words of SQLite or of the
   system; empty if nothing has failed since the run began. For a null generator: why the last cotepe_open on
   this thread failed. Never null; valid until the next call on the generator, or during the callback. */
COTEPE_API const char* cotepe_reason(const cotepe_generator* generator) COTEPE_NOEXCEPT;

/** English words for a result, never null. */
COTEPE_API const char* cotepe_result_text(int result) COTEPE_NOEXCEPT;

/** Version of the library in use, such as "1.2.3". */
COTEPE_API const char* cotepe_version(void) COTEPE_NOEXCEPT;

/* NOLINTEND(modernize-use-using) */

#ifdef __cplusplus
}
#endif

#endif
