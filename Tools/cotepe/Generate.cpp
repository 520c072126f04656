// cotepe generate: the report of a period.
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>

#include "ArquivoDeLog.h"
#include "BancoSomenteLeitura.h"
#include "Comandos.h"
#include "Corrida/Corrida.h"
#include "Idioma/Idioma.h"
#include "NomeDoRelatorio.h"
#include "OpcoesComuns.h"
#include "OpcoesDoGenerate.h"
#include "OpcoesDoPedido.h"
#include "Saida.h"
#include "SaidaEntregue.h"
#include "Sistema/Arquivo.h"
#include "Sistema/Falha.h"
#include "Sistema/Progresso.h"
#include "Valores.h"

namespace cotepe::programa {
namespace {

void declaraEntrada(CLI::App& comando, OpcoesDoGenerate& o) {
  comando.add_option("--db", o.banco, traduz("Fiscal database; it is only read"))
      ->type_name("FILE")
      ->required();
  declaraPeriodo(comando, o.periodo, traduz("First day, as DD/MM/YYYY or YYYY-MM-DD"));
  comando.add_option("--command", o.comando, traduz("MF, MFD, TDM or RZ: which registers (TDM)"))
      ->type_name("COMMAND")
      ->transform(comandoDoEcf());
  comando.add_option("--layout", o.leiaute, traduz("Layout version, 1 or 2 (1)"))
      ->type_name("VERSION")
      ->transform(escolha({"1", "2"}));
  comando.add_flag("--cat52", o.cat52, traduz("CAT52 mode: no placeholder records, no texts in E14"));
  declaraEspera(comando, o.espera);
}

void declaraSaida(CLI::App& comando, OpcoesDoGenerate& o) {
  comando
      .add_option("--output", o.saida, traduz("The report; - is stdout (COMMANDserial_yyyymmdd_hhmmss.TXT)"))
      ->type_name("FILE")
      ->check([](const std::string& texto) { return texto.empty() ? traduz("empty name") : ""; });
  comando
      .add_option("--deliver", o.entrega,
                  traduz("Write the report to this folder as it is handed in: CR/LF, and the law's name"))
      ->type_name("FOLDER")
      ->check([](const std::string& texto) { return texto.empty() ? traduz("empty name") : ""; });
#ifdef COTEPE_ASSINA
  declaraChave(comando, o.chave);
#endif
  comando.add_flag("--force", o.substitui, traduz("Replace the report if it exists"));
  comando.add_flag("--keep-partial", o.guardaParcial, traduz("Keep an incomplete report as FILE.partial"));
  comando.add_option("--log", o.log, traduz("Append failed queries to this file (stderr)"))
      ->type_name("FILE");
  comando.add_flag("--quiet", o.calado, traduz("No summary and no progress; failures are always told"));
}

void declaraQuemEmite(CLI::App& comando, OpcoesDoGenerate& o) {
  declaraIdentidade(comando, o.identidade);
  comando
      .add_option("--sb-version", o.versaoSb, traduz("Accepted; the layout takes it from the database alone"))
      ->type_name("TEXT");
}

void abreLog(ArquivoDeLog& log, const std::string& arquivo) {
  if (arquivo.empty()) return;
  std::FILE* aberto = abreFluxo(arquivo, "ab");
  if (aberto != nullptr) return log.toma(aberto);
  throw Falha(kNaoAbre,
              frase("cannot open the log {1}: {2}; choose another --log", {arquivo, motivoDoSistema(errno)}));
}

// How the report is delivered; empty if it is not.
Preparo preparoDe(const OpcoesDoGenerate& opcoes) {
  if (opcoes.entrega.empty()) return nullptr;
#ifdef COTEPE_ASSINA
  if (!opcoes.chave.arquivo.empty()) return preparoComAssinatura(opcoes.chave);
#endif
  return preparaSemAssinatura;
}

std::unique_ptr<Saida> abreSaida(const OpcoesDoGenerate& opcoes, sqlite3* banco, const std::string& momento,
                                 const Preparo& preparo) {
  if (opcoes.paraStdout()) return saidaPadrao();
  if (!opcoes.semNome()) return saidaEmArquivo(opcoes.saida, "", opcoes.substitui, opcoes.guardaParcial);
  const NomeDoRelatorio nome(opcoes.comando, numeroDeFabricacao(banco, opcoes.identidade.serial), momento);
  if (preparo) {
    const std::string destino = (std::filesystem::path(opcoes.entrega) / nome.completo).string();
    exigeArquivosDistintos(opcoes, destino);
    return saidaEntregue(destino, nome.origem, opcoes.substitui, opcoes.guardaParcial, preparo);
  }
  exigeArquivosDistintos(opcoes, nome.completo);
  return saidaEmArquivo(nome.completo, nome.origem, opcoes.substitui, opcoes.guardaParcial);
}

void exigeGerado(const FimDaCorrida& fim, const OpcoesDoGenerate& opcoes, const std::string& saida,
                 const std::string& motivo) {
  if (fim.resultado == kGerado) return;
  if (fim.resultado == kIdentidadeFalhou) {
    throw Falha(kSemIdentidade, semIdentidade(opcoes.banco, motivo));
  }
  const std::string encontrado =
      fim.erro != 0 ? motivoDoSistema(fim.erro) : traduz("the system does not say why");
  if (fim.resultado == kRelatorioNaoAberto)
    throw Falha(kNaoAbre, frase("cannot open the temporary file of {1}: {2}", {saida, encontrado}));
  throw Falha(kNaoEscreve,
              frase("cannot write {1}: {2}; free some space and try again", {saida, encontrado}));
}

void exigeCompleto(const std::vector<Etapa>& etapas, bool guarda, Saida& saida) {
  const std::string faltam = incompletos(etapas);
  if (faltam.empty()) return;
  if (!guarda)
    throw Falha(kIncompleto,
                frase("the report is incomplete: {1}; --keep-partial keeps what there is", {faltam}));
  throw Falha(kIncompleto, frase("the report is incomplete: {1}; what there is was kept as {2}",
                                 {faltam, saida.guardaParcial()}));
}

void gera(const OpcoesDoGenerate& opcoes, const PeriodoDaGeracao& periodo, sqlite3* banco,
          HospedeiroDoPrograma& hospedeiro, Saida& saida) {
  const PedidoDeGeracao pedido{{opcoes.leiaute, opcoes.cat52}, opcoes.comando, periodo.de, periodo.ate};
  const FimDaCorrida fim = corre(banco, pedido, saida.temporario(), hospedeiro);
  exigeGerado(fim, opcoes, saida.nome(), hospedeiro.motivo());
  exigeCompleto(hospedeiro.etapas(), opcoes.guardaParcial, saida);
}

// The text of a failure goes on to say what happened to the output.
template <class Passos>
void ouAbandona(Saida& saida, const Passos& passos) {
  try {
    passos();
  } catch (const SemLeitor&) {
    throw;
  } catch (const Falha& falha) {
    const std::string destino = saida.abandona();
    throw Falha(falha.situacao(), falha.what() + (destino.empty() ? destino : "; " + destino));
  }
}

// One line for each register with its count of lines, and one for the whole report.
std::string resumo(const std::vector<Etapa>& etapas, const std::string& relatorio, std::int64_t bytes,
                   double segundos) {
  char linha[120];
  std::string texto;
  long total = 0;
  for (const Etapa& etapa : etapas) {
    static_cast<void>(std::snprintf(linha, sizeof linha, "%s %11ld\n", etapa.registro, etapa.linhas));
    texto += linha;
    total += etapa.linhas;
  }
  static_cast<void>(std::snprintf(linha, sizeof linha, "%.1f", segundos));
  return texto +
         frase("{1}: {2} lines, {3} bytes, {4} s",
               {relatorio, std::to_string(total), std::to_string(bytes), linha}) +
         '\n';
}

void executa(const OpcoesDoGenerate& opcoes) {
  const PeriodoDaGeracao periodo = confere(opcoes);
  if (!opcoes.semNome()) exigeArquivosDistintos(opcoes, opcoes.saida);
  const Preparo preparo = preparoDe(opcoes);
  ArquivoDeLog log;
  abreLog(log, opcoes.log);
  Progresso progresso(opcoes.calado);
  const BancoSomenteLeitura banco(opcoes.banco, std::chrono::milliseconds(opcoes.espera));
  const std::string momento = momentoAtual();
  const auto saida = abreSaida(opcoes, banco.banco(), momento, preparo);
  HospedeiroDoPrograma hospedeiro(opcoes.identidade, momento, banco.banco(), log, progresso);
  ouAbandona(*saida, [&] {
    gera(opcoes, periodo, banco.banco(), hospedeiro, *saida);
    saida->entrega();
  });
  progresso.limpa();
  if (opcoes.calado) return;
  static_cast<void>(std::fputs(
      resumo(hospedeiro.etapas(), saida->nome(), saida->tamanho(), progresso.segundos()).c_str(), stderr));
}

}  // namespace

Acao declaraGenerate(CLI::App& comando) {
  const auto opcoes = std::make_shared<OpcoesDoGenerate>();
  declaraEntrada(comando, *opcoes);
  declaraSaida(comando, *opcoes);
  declaraQuemEmite(comando, *opcoes);
  return [opcoes] { executa(*opcoes); };
}

}  // namespace cotepe::programa
