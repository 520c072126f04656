// Checks a report against the rules, in one pass.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Leitor/AjustesDoRelatorio.h"
#include "Leitor/LeitorDeRegistros.h"
#include "Validacao/Familia.h"
#include "Validacao/RegrasDoRelatorio.h"

namespace cotepe {

/// The options of a validation.
struct OpcoesDeValidacao {
  std::string arquivo;            ///< its name in the findings
  Supressoes desligadas;          ///< rules that are not applied
  Catalogo catalogo = kCatalogo;  ///< the registers that the lines are read by
};

/// Reads a report to its end and gives every finding to `recebe`, in one pass: most of them at their line,
/// those of whole documents and of the whole file at the end.
///
/// Something is remembered of each coupon of E14 and E19, since its items and payments are elsewhere in the
/// file: the most recent pages in memory, the others in a temporary file without a name (in TMPDIR), or in
/// memory too when there is no room for one.
///
///   Validacao validador(saida, opcoes);
///   LeitorDeLinhas linhas(descritor);
///   if (!validador.valida(linhas)) ... linhas.erro() ...
class Validacao {
 public:
  /// Borrows `recebe`, and copies the options.
  Validacao(RecebeAchados& recebe, const OpcoesDeValidacao& opcoes);
  ~Validacao();
  Validacao(const Validacao&) = delete;
  Validacao& operator=(const Validacao&) = delete;

  /// A function that sees each record before the rules do, so that the file is read once.
  using Observa = std::function<void(const RegistroLido& lido, const LeitorDeRegistros& leitor)>;

  /// False when the file could not be read to its end (LeitorDeLinhas::erro). To be called once.
  bool valida(LeitorDeLinhas& linhas, const Observa& observa = {});

  /// Lines read.
  long linhas() const { return linhas_; }

  /// What the report was made with, once it is read.
  const AjustesDoRelatorio& ajustes() const { return ajustes_; }

 private:
  Relator relator_;
  Catalogo catalogo_;
  std::vector<std::unique_ptr<Familia>> familias_;
  AjustesDoRelatorio ajustes_;
  long linhas_ = 0;
};

}  // namespace cotepe
