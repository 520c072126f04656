// The default name of a report.
#pragma once

#include <string>

struct sqlite3;

namespace cotepe::programa {

/// The manufacture number of the printer as the report will carry it, at most 20 bytes: the database's, or
/// else `dada`, from the command line. Empty when there is neither.
std::string numeroDeFabricacao(sqlite3* banco, const std::string& dada);

/// The name in the law's pattern, as in MFxxxxxx_aaaammdd_hhmmss.TXT: command, manufacture number, moment. In
/// the number anything but letters, digits and hyphens becomes '_'.
struct NomeDoRelatorio {
  NomeDoRelatorio(const std::string& comando, const std::string& numero, std::string momento);

  std::string origem;    // command and number: the part that all reports of one printer and command share
  std::string completo;  // the whole name
};

}  // namespace cotepe::programa
