// A report signed as the law requires.
#pragma once

#include "Assinatura/BlocoAssinado.h"
#include "Assinatura/Chaves.h"
#include "Assinatura/FormaDeEntrega.h"

namespace cotepe {

/// How a report is delivered.
struct PedidoDeEntrega {
  const ChavePrivada* chave = nullptr;     ///< who signs
  FormaDoBloco forma = FormaDoBloco::Lei;  ///< of the signature
  bool forcado = false;                    ///< sign it even if it is not a report
};

/// What was delivered.
struct Entregue {
  long linhas = 0;                              ///< the EAD line among them
  bool trocouFins = false;                      ///< some line did not end with CR/LF
  bool tirouEad = false;                        ///< an EAD line was at the end
  ResumoMd5 resumo{};                           ///< of what precedes the new one
  Estranheza estranheza = Estranheza::Nenhuma;  ///< set only when it was forced
  long linhaEstranha = 0;
};

/// Reads a report in blocks and writes it with CR/LF and an EAD line. Throws ErroDaAssinatura and whatever
/// the two functions throw; what was written by then is incomplete.
Entregue assina(const LeituraDeBytes& le, const EscritaDeBytes& escreve, const PedidoDeEntrega& pedido);

}  // namespace cotepe
