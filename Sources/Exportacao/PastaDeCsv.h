// An export as a folder of CSV files.
#pragma once

#include <array>
#include <memory>
#include <string>

#include "Exportacao/DestinoDaExportacao.h"
#include "Sistema/PastaSegura.h"
#include "Sistema/TextoEmArquivo.h"

namespace cotepe::exportacao {

/// E01.csv to E22.csv for the registers that the reports have, arquivos.csv, and where needed repetidos.csv
/// and linhas_literais.csv: the tables of BancoExportado, except that money and quantities have a decimal
/// point. UTF-8, a row of names first; a value with a comma, a quote or a line end is quoted.
class PastaDeCsv final : public DestinoDaExportacao {
 public:
  /// Throws Falha as PastaSegura.
  PastaDeCsv(const std::string& destino, bool substitui);

  void registro(const ArquivoExportado& arquivo, const RegistroLido& lido, const LinhaTipada& linha) override;
  void literal(const ArquivoExportado& arquivo, long linha, std::string_view bytes) override;
  void arquivo(const ArquivoExportado& arquivo) override;

  /// Gives the folder its name.
  void conclui() override;

 private:
  using Texto = std::unique_ptr<programa::TextoEmArquivo>;

  void escreve(Texto& texto, const std::string& nome, std::string_view titulos);
  void abreRegistro(std::size_t indice);

  programa::PastaSegura pasta_;
  std::array<Texto, kCatalogo.size()> registros_;
  Texto literais_, repetidos_, arquivos_;
  std::string linha_;
};

}  // namespace cotepe::exportacao
