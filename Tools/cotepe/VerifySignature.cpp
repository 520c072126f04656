// cotepe verify-signature: says whether a signed report is what was signed.
#include <memory>

#include "ArquivoLido.h"
#include "Assinatura/Laudo.h"
#include "Comandos.h"
#include "FalhasDaAssinatura.h"
#include "Idioma/Idioma.h"
#include "OpcoesDaChave.h"
#include "SaidaDoLaudo.h"
#include "Sistema/FluxoDeSaida.h"
#include "Valores.h"

namespace cotepe::programa {
namespace {

struct OpcoesDoVerifySignature {
  std::string relatorio, chave, formato = "text";
};

LeituraDeBytes abre(const std::string& relatorio) {
  return [arquivo = std::make_shared<ArquivoLido>(relatorio, kUsoErrado)](
             char* destino, std::size_t tamanho) { return arquivo->le(destino, tamanho); };
}

Laudo examina(const OpcoesDoVerifySignature& opcoes, const ChavePublica& chave) {
  try {
    return verifica([&] { return abre(opcoes.relatorio); }, chave);
  } catch (const ErroDaAssinatura& erro) {
    throw falhaDaAssinatura(erro, opcoes.relatorio, kUsoErrado);
  }
}

void executa(const OpcoesDoVerifySignature& opcoes) {
  if (opcoes.relatorio == "-") throw Falha(kUsoErrado, traduz("REPORT must be a file, not stdin"));
  exigeMd5(kUsoErrado);
  const ChavePublica chave = leChavePublica(opcoes.chave, kUsoErrado);
  const Laudo laudo = examina(opcoes, chave);
  FluxoDeSaida fluxo;
  (opcoes.formato == "json" ? escreveJson : escreveTexto)(fluxo, opcoes.relatorio, laudo);
  fluxo.conclui();
  if (laudo.parecer == Parecer::Alterada)
    throw Veredito(frase("{1}: not what was signed", {opcoes.relatorio}));
  if (laudo.parecer == Parecer::NaoSeSabe)
    throw Veredito(frase("{1}: nothing can be told of the signature", {opcoes.relatorio}), kNaoSeSabe);
}

}  // namespace

Acao declaraVerifySignature(CLI::App& comando) {
  const auto o = std::make_shared<OpcoesDoVerifySignature>();
  comando.add_option("REPORT", o->relatorio, traduz("The report, a file"))->required();
  comando.add_option("--public-key", o->chave, traduz("Public key of the one who signed: PEM or XML"))
      ->type_name("FILE")
      ->required();
  comando.add_option("--format", o->formato, traduz("text, or json (text)"))
      ->type_name("FORMAT")
      ->transform(escolha({"text", "json"}));
  comando.footer(traduz(
      "valid: the file is what was signed with this key. changed: file and signature do not agree; what\n"
      "is said below may show that the content does. cannot be told: the signature is of another key, "
      "or\n"
      "made by a method of the maker's own, or there is none.\n"
      "MD5 and RSA of 1024 bits are what the law asks for; they are no protection today.\n"
      "Exit status: 0 valid, 1 changed, 2 could not run, 4 writing failed, 6 cannot be told."));
  return [o] { executa(*o); };
}

}  // namespace cotepe::programa
