// Where the rows of an export go.
#pragma once

#include <string>

#include "Exportacao/LinhaTipada.h"

namespace cotepe::exportacao {

/// A report being exported.
struct ArquivoExportado {
  long numero = 0;  ///< from 1
  std::string nome;
  std::string fim;  ///< of its first line: LF, CR and LF, or nothing
  AjusteDoLeiaute leiaute;
  long linhas = 0;
  std::uint64_t bytes = 0;
  std::string fabricacao, modelo, cnpj, comando;  ///< of the first record that has them; bytes of the file
};

/// Receives the lines of the reports in their order. Each call throws sistema's Falha when it cannot write.
class DestinoDaExportacao {
 public:
  virtual ~DestinoDaExportacao() = default;

  /// A line of a register.
  virtual void registro(const ArquivoExportado& arquivo, const RegistroLido& lido,
                        const LinhaTipada& linha) = 0;

  /// The bytes of a line that cannot be rebuilt from its values, including its end.
  virtual void literal(const ArquivoExportado& arquivo, long linha, std::string_view bytes) = 0;

  /// The end of a report.
  virtual void arquivo(const ArquivoExportado& arquivo) = 0;

  /// The end of the last one: everything is written.
  virtual void conclui() = 0;
};

}  // namespace cotepe::exportacao
