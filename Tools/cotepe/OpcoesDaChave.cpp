#include "OpcoesDaChave.h"

#include <cstdlib>
#include <memory>
#include <utility>

#include "Assinatura/Assinatura.h"
#include "Assinatura/Chaves.h"
#include "Assinatura/Md5.h"
#include "Assinatura/TextoDeChave.h"
#include "FalhasDaAssinatura.h"
#include "Idioma/Idioma.h"
#include "Sistema/Sinais.h"
#include "Sistema/Terminal.h"
#include "Valores.h"

namespace cotepe::programa {
namespace {

// The first line.
void leFraseDoArquivo(const std::string& arquivo, std::string& resposta, int situacao) {
  try {
    const TextoDeChave texto(arquivo);
    const std::string_view linha = texto.texto().substr(0, texto.texto().find('\n'));
    resposta = linha.substr(0, !linha.empty() && linha.back() == '\r' ? linha.size() - 1 : linha.size());
  } catch (const ErroDaAssinatura& erro) {
    const bool fechado = erro.problema() == ProblemaDaAssinatura::ChaveNaoAbre;
    throw Falha(situacao, frase("cannot read the pass phrase file {1}: {2}",
                                {arquivo, fechado ? motivoDoSistema(static_cast<int>(erro.numero()))
                                                  : traduz("it is too large")}));
  }
}

PedeFrase quemPergunta(const OpcoesDaChave& opcoes, int situacao) {
  return [&opcoes, situacao](std::string& resposta) {
    if (!opcoes.arquivoDaFrase.empty()) {
      leFraseDoArquivo(opcoes.arquivoDaFrase, resposta, situacao);
      return true;
    }
    if (const char* ambiente = std::getenv("COTEPE_PASSPHRASE"); ambiente != nullptr) {
      resposta = ambiente;
      return true;
    }
    const bool respondida = perguntaEmSegredo(frase("Pass phrase of {1}: ", {opcoes.arquivo}), resposta);
    paraSeInterrompido();
    return respondida;
  };
}

}  // namespace

CLI::Option* declaraChave(CLI::App& comando, OpcoesDaChave& opcoes) {
  CLI::Option* chave =
      comando.add_option("--key", opcoes.arquivo, traduz("Private key that signs: PEM, RSA of 1024 bits"))
          ->type_name("FILE");
  comando
      .add_option("--form", opcoes.forma,
                  traduz("Form of the signature: law, or pkcs1 for those who verify that (law)"))
      ->type_name("FORM")
      ->transform(escolha({"law", "pkcs1"}));
  declaraFrase(comando, opcoes);
  return chave;
}

void declaraFrase(CLI::App& comando, OpcoesDaChave& opcoes) {
  comando
      .add_option("--passphrase-file", opcoes.arquivoDaFrase,
                  traduz("Pass phrase of an encrypted key, first line (COTEPE_PASSPHRASE, or the terminal)"))
      ->type_name("FILE");
}

void exigeMd5(int situacao) {
  try {
    const Md5 tentativa;
  } catch (const ErroDaAssinatura& erro) {
    throw falhaDaAssinatura(erro, "", situacao);
  }
}

ChavePrivada leChavePrivada(const OpcoesDaChave& opcoes, int situacao) {
  try {
    const TextoDeChave texto(opcoes.arquivo);
    return ChavePrivada::le(texto.texto(), quemPergunta(opcoes, situacao));
  } catch (const ErroDaAssinatura& erro) {
    throw falhaDaAssinatura(erro, opcoes.arquivo, situacao);
  }
}

Preparo preparoComAssinatura(const OpcoesDaChave& opcoes) {
  exigeMd5(kNaoAbre);
  auto chave = std::make_shared<ChavePrivada>(leChavePrivada(opcoes, kNaoAbre));
  return [chave = std::move(chave), opcoes](const LeituraDeBytes& le, const EscritaDeBytes& escreve) {
    try {
      assina(le, escreve, {chave.get(), opcoes.formaDoBloco(), true});
    } catch (const ErroDaAssinatura& erro) {
      throw falhaDaAssinatura(erro, opcoes.arquivo, kNaoEscreve);
    }
  };
}

ChavePublica leChavePublica(const std::string& arquivo, int situacao) {
  try {
    const TextoDeChave texto(arquivo);
    return ChavePublica::le(texto.texto());
  } catch (const ErroDaAssinatura& erro) {
    throw falhaDaAssinatura(erro, arquivo, situacao);
  }
}

}  // namespace cotepe::programa
