// Holds a report to the rules, in one pass.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "LeitorDeRegistros.h"
#include "Validacao/Familia.h"
#include "Validacao/Regras.h"

namespace cotepe {

struct OpcoesDeValidacao {
  std::string arquivo;  // its name in the findings
  ConjuntoDeRegras desligadas;
};

/// Reads a report to its end and gives every finding to `recebe`, in one pass: most of them at their line,
/// those of whole documents and of the whole file at the end.
///
/// Memory does not grow with the lines, but with the documents: 40 bytes, and up to twice as many while
/// tables grow, for each coupon of E14 and E19, of which items and payments stand elsewhere in the file; and
/// some hundred for each Z reduction.
///
///   Validador validador(saida, opcoes);
///   LeitorDeLinhas linhas(descritor);
///   if (!validador.valida(linhas)) ... linhas.erro() ...
class Validador {
 public:
  Validador(RecebeAchados& recebe, const OpcoesDeValidacao& opcoes);
  ~Validador();
  Validador(const Validador&) = delete;
  Validador& operator=(const Validador&) = delete;

  /// False when the file could not be read to its end (LeitorDeLinhas::erro). To be called once.
  bool valida(LeitorDeLinhas& linhas);

  /// Lines read.
  long linhas() const { return linhas_; }

 private:
  Relator relator_;
  std::vector<std::unique_ptr<Familia>> familias_;
  long linhas_ = 0;
};

}  // namespace cotepe
