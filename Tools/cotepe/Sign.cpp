// cotepe sign: a report with the EAD line that the law requires at its end.
#include <cstdio>
#include <filesystem>
#include <memory>

#include "ArquivoLido.h"
#include "Assinatura/Assinatura.h"
#include "Comandos.h"
#include "EscritaEmArquivo.h"
#include "FalhasDaAssinatura.h"
#include "Idioma/Idioma.h"
#include "NomeDaEntrega.h"
#include "OpcoesDaChave.h"
#include "Saida.h"
#include "Sistema/ConflitoDeArquivos.h"

namespace cotepe::programa {
namespace {

struct OpcoesDoSign {
  std::string relatorio, saida;
  OpcoesDaChave chave;
  bool forcado = false, calado = false;

  bool noLugar() const { return saida.empty(); }
};

std::string destinoDe(const OpcoesDoSign& opcoes) {
  if (opcoes.noLugar()) return opcoes.relatorio;
  std::error_code erro;
  if (!std::filesystem::is_directory(opcoes.saida, erro)) return opcoes.saida;
  return (std::filesystem::path(opcoes.saida) / nomeDaEntrega(opcoes.relatorio)).string();
}

void exigeArquivosDistintos(const OpcoesDoSign& opcoes, const std::string& destino) {
  for (const std::string& lido : {opcoes.chave.arquivo, opcoes.chave.arquivoDaFrase})
    if (!lido.empty() && mesmoArquivo(destino, lido))
      throw Falha(kUsoErrado, frase("{1} {2} is the output too; choose another name",
                                    {lido == opcoes.chave.arquivo ? "--key" : "--passphrase-file", lido}));
}

std::unique_ptr<Saida> abreSaida(const OpcoesDoSign& opcoes) {
  if (opcoes.saida == "-") return saidaPadrao();
  const std::string destino = destinoDe(opcoes);
  exigeArquivosDistintos(opcoes, destino);
  auto saida = saidaEmArquivo(destino, "", opcoes.forcado || opcoes.noLugar(), false);
  std::error_code erro;  // whoever may not read the report may not read the signed copy
  const auto modo = std::filesystem::status(opcoes.relatorio, erro).permissions();
  if (opcoes.noLugar() && !erro) std::filesystem::permissions(saida->temporario(), modo, erro);
  return saida;
}

Entregue assinaPara(Saida& saida, const OpcoesDoSign& opcoes, const ArquivoLido& relatorio,
                    const ChavePrivada& chave) {
  EscritaEmArquivo arquivo(saida.temporario(), saida.nome());
  const Entregue feito =
      assina([&](char* destino, std::size_t tamanho) { return relatorio.le(destino, tamanho); },
             [&](std::string_view bytes) { arquivo.escreve(bytes); },
             {&chave, opcoes.chave.formaDoBloco(), opcoes.forcado});
  arquivo.conclui();
  return feito;
}

[[noreturn]] void abandona(Saida& saida, const Falha& falha) {
  const std::string destino = saida.abandona();
  throw Falha(falha.situacao(), falha.what() + (destino.empty() ? destino : "; " + destino));
}

void conta(const Saida& saida, const Entregue& feito) {
  std::string texto =
      fraseDe("{1}: signed, {n} line, {2} bytes, MD5 {3}", "{1}: signed, {n} lines, {2} bytes, MD5 {3}",
              feito.linhas, {saida.nome(), std::to_string(saida.tamanho()), textoDoResumo(feito.resumo)});
  if (feito.trocouFins) texto += std::string("; ") + traduz("the line ends were made CR/LF");
  if (feito.tirouEad) texto += std::string("; ") + traduz("the old EAD line was removed");
  static_cast<void>(std::fprintf(stderr, "%s\n", texto.c_str()));
}

void executa(const OpcoesDoSign& opcoes) {
  if (opcoes.relatorio == "-") throw Falha(kUsoErrado, traduz("REPORT must be a file, not stdin"));
  exigeMd5(kNaoAbre);
  const ChavePrivada chave = leChavePrivada(opcoes.chave, kNaoAbre);
  const ArquivoLido relatorio(opcoes.relatorio, kNaoAbre);
  const auto saida = abreSaida(opcoes);
  Entregue feito;
  try {
    feito = assinaPara(*saida, opcoes, relatorio, chave);
    saida->entrega();
  } catch (const ErroDaAssinatura& erro) {
    const bool recusado = erro.problema() == ProblemaDaAssinatura::NaoERelatorio;
    abandona(*saida, falhaDaAssinatura(erro, opcoes.relatorio, recusado ? kIncompleto : kNaoAbre));
  } catch (const SemLeitor&) {
    throw;
  } catch (const Falha& falha) {
    abandona(*saida, falha);
  }
  if (feito.estranheza != Estranheza::Nenhuma)
    avisa(frase(
        "{1} was signed, though it is no report: {2}",
        {opcoes.relatorio, textoDaEstranheza(static_cast<long>(feito.estranheza), feito.linhaEstranha)}));
  if (!opcoes.calado) conta(*saida, feito);
}

}  // namespace

Acao declaraSign(CLI::App& comando) {
  const auto o = std::make_shared<OpcoesDoSign>();
  comando.add_option("REPORT", o->relatorio, traduz("The report, a file"))->required();
  declaraChave(comando, o->chave)->required();
  comando
      .add_option("--output", o->saida,
                  traduz("The signed report, or a folder where it gets the law's name; - is stdout (in place "
                         "of REPORT)"))
      ->type_name("FILE");
  comando.add_flag("--force", o->forcado,
                   traduz("Replace the output if it exists, and sign also what is no report"));
  comando.add_flag("--quiet", o->calado, traduz("No summary; failures are always told"));
  comando.footer(traduz(
      "The signed report has CR/LF at the end of every line; an EAD line that it had is removed.\n"
      "A key is made by: openssl genpkey -algorithm RSA -pkeyopt rsa_keygen_bits:1024 -aes256 -out "
      "private.pem\n"
      "MD5 and RSA of 1024 bits are what the law asks for; they are no protection today.\n"
      "Exit status: 0 signed, 1 refused because it is no report, 2 wrong usage, 3 the report, the key\n"
      "or the output cannot be opened or used, 4 writing failed."));
  return [o] { executa(*o); };
}

}  // namespace cotepe::programa
