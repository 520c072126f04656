// cotepe public-key: a key in the form in which it is handed in.
#include <memory>
#include <string_view>

#include "Assinatura/Chaves.h"
#include "Assinatura/TextoDeChave.h"
#include "Comandos.h"
#include "EscritaEmArquivo.h"
#include "FalhasDaAssinatura.h"
#include "Idioma/Idioma.h"
#include "OpcoesDaChave.h"
#include "Saida.h"
#include "Sistema/Descritor.h"
#include "Valores.h"

namespace cotepe::programa {
namespace {

struct OpcoesDoPublicKey {
  OpcoesDaChave chave;
  std::string formato = "xml", nome, saida = "-";
  bool substitui = false;
};

bool ehPrivada(const std::string& arquivo) {
  try {
    return TextoDeChave(arquivo).texto().find("PRIVATE KEY-----") != std::string_view::npos;
  } catch (const ErroDaAssinatura& erro) {
    throw falhaDaAssinatura(erro, arquivo, kNaoAbre);
  }
}

ChavePublica le(const OpcoesDaChave& opcoes) {
  if (ehPrivada(opcoes.arquivo)) return leChavePrivada(opcoes, kNaoAbre).publica();
  return leChavePublica(opcoes.arquivo, kNaoAbre);
}

void exigeNome(const OpcoesDoPublicKey& opcoes) {
  if (opcoes.formato == "pem" && !opcoes.nome.empty())
    throw Falha(kUsoErrado, traduz("--name is of XML; --format pem has no name"));
  for (const char c : opcoes.nome)
    if (static_cast<unsigned char>(c) < ' ')
      throw Falha(kUsoErrado, traduz("--name has a control character"));
}

void executa(const OpcoesDoPublicKey& opcoes) {
  exigeNome(opcoes);
  const ChavePublica chave = le(opcoes.chave);
  const bool xml = opcoes.formato == "xml";
  const std::string texto = xml ? chave.xml(opcoes.nome) : chave.pem();
  if (xml && opcoes.nome.empty() && chave.nome().empty())
    avisa(traduz("the element nome is empty; --name fills it"));
  if (opcoes.saida == "-") return escreveNaSaidaPadrao(texto);
  const auto saida = saidaEmArquivo(opcoes.saida, "", opcoes.substitui, false);
  EscritaEmArquivo arquivo(saida->temporario(), saida->nome());
  arquivo.escreve(texto);
  arquivo.conclui();
  saida->entrega();
}

}  // namespace

Acao declaraPublicKey(CLI::App& comando) {
  const auto o = std::make_shared<OpcoesDoPublicKey>();
  comando.add_option("KEY", o->chave.arquivo, traduz("The key: a private or public one in PEM, or XML"))
      ->required();
  comando.add_option("--format", o->formato, traduz("xml, as it is handed in, or pem (xml)"))
      ->type_name("FORMAT")
      ->transform(escolha({"xml", "pem"}));
  comando.add_option("--name", o->nome, traduz("Of XML: whose key it is (what the XML read says)"))
      ->type_name("NAME");
  declaraFrase(comando, o->chave);
  comando.add_option("--output", o->saida, traduz("The public key; - is stdout (-)"))->type_name("FILE");
  comando.add_flag("--force", o->substitui, traduz("Replace the output if it exists"));
  comando.footer(traduz(
      "Exit status: 0 done, 2 wrong usage, 3 the key or the output cannot be opened or used, 4 writing\n"
      "failed."));
  return [o] { executa(*o); };
}

}  // namespace cotepe::programa
