// A report verified against the database that it came from.
#pragma once

#include <string>
#include <vector>

#include "Achados/Achado.h"
#include "Sistema/Progresso.h"
#include "Verificacao/PedidosPossiveis.h"

struct sqlite3;

namespace cotepe::programa {

/// What is verified.
struct OpcoesDaVerificacao {
  std::string relatorio, banco;  ///< as given: the report's file, the database's name
  Identidade identidade;         ///< of the printer, if the database has none
  PedidoParcial dado;            ///< what the report was generated with
  bool calado = false;           ///< no progress on stderr
};

/// Generates the report again, under each possible setting until one gives the same bytes, and compares. What
/// it generates is in a temporary file without a name.
class Verificacao {
 public:
  /// Chooses the settings: the first of those that leave the fewest differences; a correct report needs only
  /// one try. Borrows the open database; `lidos` is what the report itself shows. Throws Falha when the
  /// database gives no complete report, or a file cannot be read or written, and Interrupcao.
  Verificacao(OpcoesDaVerificacao opcoes, const AjustesDoRelatorio& lidos, sqlite3* banco);

  /// The chosen settings, in words.
  const std::string& pedidoEmPalavras() const { return emPalavras_; }

  /// Passes each difference from the report generated with them to `recebe`. Throws as the constructor does.
  void compara(RecebeAchados& recebe) { confronta(pedido_, recebe); }

 private:
  // Takes the settings that leave the fewest differences; whether they leave none.
  bool escolhe();
  void confronta(const PedidoDeGeracao& pedido, RecebeAchados& recebe);
  ArquivoSemNome gera(const PedidoDeGeracao& pedido);
  void exigeInteiro(int resultado, const HospedeiroDoPrograma& hospedeiro) const;

  OpcoesDaVerificacao opcoes_;
  sqlite3* banco_;
  Progresso progresso_;
  std::vector<PedidoDeGeracao> possiveis_;
  PedidoDeGeracao pedido_;
  std::string emPalavras_;
};

}  // namespace cotepe::programa
