// A report as it is delivered: CR/LF at the end of every line, and signed if there is a key.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "Assinatura/FormaDeEntrega.h"
#include "Saida.h"

namespace cotepe::programa {

/// Reads a plain report and writes it as it is handed in. Throws Falha and Interrupcao.
using Preparo = std::function<void(const LeituraDeBytes& le, const EscritaDeBytes& escreve)>;

/// CR/LF, and no signature.
void preparaSemAssinatura(const LeituraDeBytes& le, const EscritaDeBytes& escreve);

/// The generator writes a plain file, which is removed when the output is delivered: whole or not at all. An
/// incomplete report that is kept has CR/LF and no signature. Arguments as of saidaEmArquivo. Throws Falha
/// (kNaoAbre).
std::unique_ptr<Saida> saidaEntregue(const std::string& destino, const std::string& apelido, bool substitui,
                                     bool guarda, Preparo preparo);

}  // namespace cotepe::programa
