// What a report is called when nobody names it.
#pragma once

#include <string>

struct sqlite3;

namespace cotepe::programa {

/// The manufacture number of the printer as the report will carry it, at most 20 bytes: the database's, or
/// else `dada`, which is what the command line gives. Empty when there is neither.
std::string numeroDeFabricacao(sqlite3* banco, const std::string& dada);

/// The name by the law's pattern, as in MFxxxxxx_aaaammdd_hhmmss.TXT: command, manufacture number, moment. Of
/// the number whatever is neither letter, digit nor hyphen becomes '_'.
struct NomeDoRelatorio {
  NomeDoRelatorio(const std::string& comando, const std::string& numero, std::string momento);

  std::string origem;    // command and number: the part that all reports of one printer and command share
  std::string completo;  // the whole name
};

}  // namespace cotepe::programa
