// A report signed as the law has it.
#pragma once

#include "Assinatura/BlocoAssinado.h"
#include "Assinatura/Chaves.h"
#include "Assinatura/FormaDeEntrega.h"

namespace cotepe {

/// How a report is delivered.
struct PedidoDeEntrega {
  const ChavePrivada* chave = nullptr;     ///< who signs
  FormaDoBloco forma = FormaDoBloco::Lei;  ///< of the signature
  bool forcado = false;                    ///< sign also what is no report
};

/// What was delivered.
struct Entregue {
  long linhas = 0;                              ///< the EAD line among them
  bool trocouFins = false;                      ///< a line had no CR/LF
  bool tirouEad = false;                        ///< an EAD line was at the end
  ResumoMd5 resumo{};                           ///< of what stands before the new one
  Estranheza estranheza = Estranheza::Nenhuma;  ///< only where it was forced
  long linhaEstranha = 0;
};

/// Reads a report in blocks and writes it with CR/LF and an EAD line. Throws ErroDaAssinatura, and what the
/// two functions throw; what was written then is not whole.
Entregue assina(const LeituraDeBytes& le, const EscritaDeBytes& escreve, const PedidoDeEntrega& pedido);

}  // namespace cotepe
