#include "Relatorio.h"

#include <sqlite3.h>

#include <cerrno>
#include <cstdio>

#include "ArquivoDeLog.h"
#include "BancoSomenteLeitura.h"
#include "Geracao.h"
#include "Idioma/Idioma.h"
#include "NomeDoRelatorio.h"
#include "Resumo.h"
#include "Saida.h"
#include "Sistema/Falha.h"
#include "Sistema/Progresso.h"
#include "Sistema/Sinais.h"

namespace cotepe::programa {
namespace {

constexpr int kPassosEntrePulsos = 10000;  // virtual-machine instructions of SQLite: well under a millisecond

void abreLog(ArquivoDeLog& log, const std::string& arquivo) {
  if (arquivo.empty() || log.abre(arquivo.c_str())) return;
  throw Falha(kNaoAbre,
              frase("cannot open the log {1}: {2}; choose another --log", {arquivo, motivoDoSistema(errno)}));
}

std::unique_ptr<Saida> abreSaida(const OpcoesDoGenerate& opcoes, sqlite3* banco, const std::string& momento) {
  if (opcoes.paraStdout()) return saidaPadrao();
  if (!opcoes.semNome()) return saidaEmArquivo(opcoes.saida, "", opcoes.substitui, opcoes.guardaParcial);
  const NomeDoRelatorio nome(opcoes.comando, numeroDeFabricacao(banco, opcoes.identidade.serial), momento);
  exigeArquivosDistintos(opcoes, nome.completo);
  return saidaEmArquivo(nome.completo, nome.origem, opcoes.substitui, opcoes.guardaParcial);
}

void exigeGerado(int resultado, const OpcoesDoGenerate& opcoes, const std::string& saida,
                 const std::string& motivo, int erro) {
  if (resultado == kGerado) return;
  if (resultado == kIdentidadeFalhou) {
    throw Falha(kSemIdentidade, semIdentidade(opcoes.banco, motivo));
  }
  const std::string encontrado = erro != 0 ? motivoDoSistema(erro) : traduz("the system does not say why");
  if (resultado == kRelatorioNaoAberto)
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
  const auto continua = [](void* quem) {
    return static_cast<HospedeiroDoPrograma*>(quem)->continua() ? 0 : 1;
  };
  sqlite3_progress_handler(banco, kPassosEntrePulsos, continua, &hospedeiro);
  Geracao geracao(banco, hospedeiro);
  geracao.setVersaoAtoCotepe(opcoes.leiaute);
  geracao.setCAT52(opcoes.cat52);
  errno = 0;
  const int resultado = geracao.gera(saida.temporario().c_str(), periodo.de.ddmmaaaa().c_str(),
                                     periodo.ate.ddmmaaaa().c_str(), opcoes.comando.c_str());
  const int erro = errno;
  paraSeInterrompido();
  exigeGerado(resultado, opcoes, saida.nome(), hospedeiro.motivo(), erro);
  exigeCompleto(hospedeiro.etapas(), opcoes.guardaParcial, saida);
}

// The text of a failure goes on with what became of the output.
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

}  // namespace

void geraRelatorio(const OpcoesDoGenerate& opcoes) {
  const PeriodoDaGeracao periodo = confere(opcoes);
  if (!opcoes.semNome()) exigeArquivosDistintos(opcoes, opcoes.saida);
  ArquivoDeLog log;
  abreLog(log, opcoes.log);
  Progresso progresso(opcoes.calado);
  const BancoSomenteLeitura banco(opcoes.banco, std::chrono::milliseconds(opcoes.espera));
  const std::string momento = momentoAtual();
  const auto saida = abreSaida(opcoes, banco.banco(), momento);
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

}  // namespace cotepe::programa
