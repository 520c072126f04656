/** @file
   Signs the type-E register file of a fiscal printer as it is handed in (Ato COTEPE/ICMS 17/04: records
   ending with CR/LF, the EAD line last) and verifies such signatures, for hosts in C and in languages that
   call C. Link with libcotepe-sign, which needs OpenSSL 3. MD5 and RSA of 1024 bits are what the law asks
   for; they offer no protection today. */
#ifndef COTEPE_SIGN_H
#define COTEPE_SIGN_H

/** No function throws. */
#if defined(__cplusplus) && __cplusplus >= 201103L
#define COTEPE_SIGN_NOEXCEPT noexcept
#elif defined(__cplusplus)
#define COTEPE_SIGN_NOEXCEPT throw()
#else
#define COTEPE_SIGN_NOEXCEPT
#endif

/** What the shared library exports; its own build defines COTEPE_SIGN_EXPORTS. */
#if defined(_WIN32) && defined(COTEPE_SIGN_EXPORTS)
#define COTEPE_SIGN_API __declspec(dllexport)
#elif defined(_WIN32)
#define COTEPE_SIGN_API __declspec(dllimport)
#elif defined(__GNUC__)
#define COTEPE_SIGN_API __attribute__((visibility("default")))
#else
#define COTEPE_SIGN_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* NOLINTBEGIN(modernize-use-using): C has only typedef. */

/** A key, private or public. It may be used by several threads at once. */
typedef struct cotepe_sign_key cotepe_sign_key;

/** What a function returns; cotepe_sign_result_text describes it. */
enum cotepe_sign_result {
  COTEPE_SIGN_DONE = 0,
  COTEPE_SIGN_NO_REPORT = 1,    /**< the file is not a report; nothing was written */
  COTEPE_SIGN_BAD_ARGUMENT = 2, /**< a null pointer, or an unknown flag */
  COTEPE_SIGN_CANNOT_OPEN = 3,  /**< a file cannot be opened, or the output exists already */
  COTEPE_SIGN_CANNOT_WRITE = 4, /**< the output cannot be written; there is none, or the old one */
  COTEPE_SIGN_CANNOT_READ = 5,  /**< a file cannot be read to its end */
  COTEPE_SIGN_NO_MEMORY = 6,    /**< out of memory */
  COTEPE_SIGN_BAD_KEY = 7,      /**< not an RSA key, or one half where the other is needed */
  COTEPE_SIGN_KEY_SIZE = 8,     /**< a key of a size other than 1024 bits */
  COTEPE_SIGN_PASSPHRASE = 9,   /**< the key is encrypted, and the pass phrase is missing or wrong */
  COTEPE_SIGN_REFUSED = 10, /**< the settings of OpenSSL refuse MD5, RSA of 1024 bits or the key's cipher */
  COTEPE_SIGN_FAILED = 11   /**< a signature was made that its own key does not open */
};

/** How a report is signed, to be joined with |. */
enum cotepe_sign_flag {
  COTEPE_SIGN_PKCS1 = 1,   /**< PKCS#1 v1.5 instead of the law's form */
  COTEPE_SIGN_REPLACE = 2, /**< an existing output is replaced */
  COTEPE_SIGN_ANY_FILE = 4 /**< sign even what is not a report */
};

/** The verdict on a signature. */
enum cotepe_sign_verdict {
  COTEPE_SIGN_VALID = 0,         /**< the file is what was signed */
  COTEPE_SIGN_CHANGED = 1,       /**< file and signature do not agree */
  COTEPE_SIGN_CANNOT_BE_TOLD = 2 /**< another key, a method of the maker's own, or no signature */
};

/** What was found, to be tested with &; cotepe_sign_finding_text describes it. */
enum cotepe_sign_finding {
  COTEPE_SIGN_NO_EAD = 1 << 0,          /**< no line begins with EAD */
  COTEPE_SIGN_LINE_ENDS = 1 << 1,       /**< the line ends were changed; the content agrees */
  COTEPE_SIGN_HASH_REVERSED = 1 << 2,   /**< the hash was signed with its bytes in reverse order */
  COTEPE_SIGN_DIGITS_LOST = 1 << 3,     /**< fewer than 256 digits */
  COTEPE_SIGN_PLAIN_MD5 = 1 << 4,       /**< a hash that nobody signed */
  COTEPE_SIGN_HASH_AS_TEXT = 1 << 5,    /**< the hash was signed as text */
  COTEPE_SIGN_TEXT_AFTER_EAD = 1 << 6,  /**< something follows the signature */
  COTEPE_SIGN_BYTE_ORDER_MARK = 1 << 7, /**< a byte-order mark at the start */
  COTEPE_SIGN_TWO_EADS = 1 << 8,        /**< more than one line begins with EAD */
  COTEPE_SIGN_PKCS1_FORM = 1 << 9,      /**< signed in the form of PKCS#1 v1.5 */
  COTEPE_SIGN_OTHER_KEY = 1 << 10,      /**< another key, or a method of the maker's own */
  COTEPE_SIGN_OTHER_HASH = 1 << 11,     /**< PKCS#1 around something other than MD5 */
  COTEPE_SIGN_HASH_OR_KEY = 1 << 12,    /**< the hash differs, or the key is a different one */
  COTEPE_SIGN_MIXED_DIGITS = 1 << 13,   /**< digits in upper and lower case */
  COTEPE_SIGN_NO_DIGITS = 1 << 14,      /**< the EAD line holds no signature */
  COTEPE_SIGN_HASH_DIFFERS = 1 << 15    /**< another content was signed */
};

/** What cotepe_sign_verify has found. */
typedef struct cotepe_sign_report {
  int verdict;        /**< a cotepe_sign_verdict */
  unsigned findings;  /**< of cotepe_sign_finding, joined */
  int content_agrees; /**< 1: what precedes the EAD line has the hash that it gives, apart from line ends and
                         a byte-order mark */
  char md5[33];       /**< of what precedes the EAD line */
} cotepe_sign_report;

/** Reads a private key: PEM, RSA of 1024 bits. passphrase may be null; no terminal is ever asked. *key is
   null when it fails. */
COTEPE_SIGN_API int cotepe_sign_open_private(const char* file, const char* passphrase,
                                             cotepe_sign_key** key) COTEPE_SIGN_NOEXCEPT;

/** Reads a public key: PEM, or XML with modulo and expoente_publico. *key is null when it fails. */
COTEPE_SIGN_API int cotepe_sign_open_public(const char* file, cotepe_sign_key** key) COTEPE_SIGN_NOEXCEPT;

/** Frees a key; null is ignored. */
COTEPE_SIGN_API void cotepe_sign_close(cotepe_sign_key* key) COTEPE_SIGN_NOEXCEPT;

/** Writes a report signed with a private key to `output`, or over the report itself if that is null: every
   line with CR/LF, an old EAD line at the end left out, the new one last. `flags` are of cotepe_sign_flag.
   The output appears complete and on disk, or not at all. Memory does not grow with the report. */
COTEPE_SIGN_API int cotepe_sign_file(const cotepe_sign_key* key, const char* report, const char* output,
                                     unsigned flags) COTEPE_SIGN_NOEXCEPT;

/** Says whether a report is what was signed; of a private key the public half is used. *found is meaningful
   if COTEPE_SIGN_DONE is returned, whatever the verdict. */
COTEPE_SIGN_API int cotepe_sign_verify(const cotepe_sign_key* key, const char* report,
                                       cotepe_sign_report* found) COTEPE_SIGN_NOEXCEPT;

/** English words for a result, a verdict, and one finding; never null. */
COTEPE_SIGN_API const char* cotepe_sign_result_text(int result) COTEPE_SIGN_NOEXCEPT;
/** See cotepe_sign_result_text. */
COTEPE_SIGN_API const char* cotepe_sign_verdict_text(int verdict) COTEPE_SIGN_NOEXCEPT;
/** See cotepe_sign_result_text. */
COTEPE_SIGN_API const char* cotepe_sign_finding_text(unsigned finding) COTEPE_SIGN_NOEXCEPT;

/** Version of the library in use, such as "1.2.3". */
COTEPE_SIGN_API const char* cotepe_sign_version(void) COTEPE_SIGN_NOEXCEPT;

/* NOLINTEND(modernize-use-using) */

#ifdef __cplusplus
}
#endif

#endif
