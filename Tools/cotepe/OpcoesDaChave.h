// The keys given to commands.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "Assinatura/BlocoAssinado.h"
#include "SaidaEntregue.h"

namespace cotepe {
class ChavePrivada;
class ChavePublica;
}  // namespace cotepe

namespace cotepe::programa {

struct OpcoesDaChave {
  std::string arquivo, arquivoDaFrase, forma = "law";

  FormaDoBloco formaDoBloco() const { return forma == "pkcs1" ? FormaDoBloco::Pkcs1 : FormaDoBloco::Lei; }
};

///@{
/// --key and --form; --passphrase-file.
CLI::Option* declaraChave(CLI::App& comando, OpcoesDaChave& opcoes);
void declaraFrase(CLI::App& comando, OpcoesDaChave& opcoes);
///@}

/// Throws Falha with the given status when the system has no MD5; called before a key is read, since what
/// refuses MD5 tends to refuse the key too.
void exigeMd5(int situacao);

/// The pass phrase of an encrypted key comes from its file, from COTEPE_PASSPHRASE, or from the terminal.
/// Throws Falha with the given status.
ChavePrivada leChavePrivada(const OpcoesDaChave& opcoes, int situacao);
/// Reads the key immediately; the function returned signs a report. Throws Falha (kNaoAbre).
Preparo preparoComAssinatura(const OpcoesDaChave& opcoes);

ChavePublica leChavePublica(const std::string& arquivo, int situacao);

}  // namespace cotepe::programa
