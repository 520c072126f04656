// cotepe explain: a line of a report, field by field, and the rows of the database behind it.
#include <sqlite3.h>

#include <memory>

#include "Achados/SaidaDeAchados.h"
#include "ArquivoDeLog.h"
#include "BancoSomenteLeitura.h"
#include "Comandos.h"
#include "Entrada/RelatorioLido.h"
#include "Idioma/Idioma.h"
#include "LugarNoRelatorio.h"
#include "OpcoesComuns.h"
#include "OpcoesDoPedido.h"
#include "SaidaDaExplicacao.h"
#include "Sistema/Falha.h"
#include "Sistema/FluxoDeSaida.h"
#include "Sistema/Progresso.h"
#include "Sistema/Sinais.h"
#include "Valores.h"

namespace cotepe::programa {
namespace {

struct OpcoesDoExplain {
  std::string lugar, formato = "text", banco;
  OpcoesDoPedido pedido;
  int espera = 5000;  // milliseconds
};

/// The requested line, read in its place in the report and kept.
struct LinhaPedida {
  std::string texto;
  RegistroLido lido;  // of `texto`
  std::vector<CampoLido> campos;
  AjusteDoLeiaute leiaute;
};

std::string lugarComLinha(const std::string& nome, const LugarNoRelatorio& lugar) {
  return nome + ':' + std::to_string(lugar.linha);
}

void guarda(LinhaPedida& pedida, const RegistroLido& lido, const AjusteDoLeiaute& leiaute) {
  pedida.texto = lido.linha.texto;
  pedida.campos.assign(lido.campos, lido.campos + lido.quantos);
  pedida.lido = lido;
  pedida.lido.linha.texto = pedida.texto;
  pedida.lido.campos = pedida.campos.data();
  pedida.leiaute = leiaute;
}

// Leaves the line in `pedida`, which must stay where it is.
void leLinha(const LugarNoRelatorio& lugar, LinhaPedida& pedida) {
  RelatorioLido relatorio(lugar.arquivo);
  LeitorDeRegistros registros(relatorio.linhas());
  long linhas = 0;
  RegistroLido lido;
  while (linhas < lugar.linha && registros.proximo(lido)) ++linhas;
  relatorio.confereLeitura();
  if (linhas < lugar.linha) naoTemLinha(relatorio.nome(), lugar.linha, linhas);
  if (lido.assinatura())
    throw Falha(kUsoErrado,
                frase("{1}: the line is the signature of the report; cotepe verify-signature says "
                      "whether it is good",
                      {lugarComLinha(relatorio.nome(), lugar)}));
  if (lido.registro == nullptr)
    throw Falha(kUsoErrado,
                frase("{1}: the line does not begin with the code of a register; cotepe validate says more",
                      {lugarComLinha(relatorio.nome(), lugar)}));
  guarda(pedida, lido, {registros.ajuste().versao, registros.certamenteCat52()});
}

// The field that contains the given column, from 0; below 0 if none is given.
int campoPedido(const LinhaPedida& pedida, const LugarNoRelatorio& lugar, const std::string& nome) {
  if (lugar.coluna == 0) return -1;
  const RegistroLido& lido = pedida.lido;
  for (std::size_t i = 0; i < lido.quantos; ++i) {
    const long de = lido.campos[i].posicao + 1;
    if (lugar.coluna >= de && lugar.coluna < de + static_cast<long>(lido.bytes(i).size()))
      return static_cast<int>(i);
  }
  const std::string onde = lugarComLinha(nome, lugar) + ':' + std::to_string(lugar.coluna);
  const auto tamanho = static_cast<long>(pedida.texto.size());
  const long ultimo = std::min<long>(tamanho, lido.comprimento);
  throw Falha(kUsoErrado,
              frase("{1}: {2}; its fields take the columns 1 to {3}",
                    {onde,
                     lugar.coluna > tamanho ? frase("the line has only {1} bytes", {std::to_string(tamanho)})
                                            : traduz("the column is behind the last field"),
                     std::to_string(ultimo)}));
}

// The line's number among the identical lines of the report, from 1.
long vezNoRelatorio(const LugarNoRelatorio& lugar, const std::string& texto) {
  RelatorioLido relatorio(lugar.arquivo);
  long vez = 0;
  for (LinhaLida linha; relatorio.linhas().proxima(linha);) {
    if (linha.texto == texto) ++vez;
    if (linha.numero == lugar.linha) break;
  }
  relatorio.confereLeitura();
  return vez;
}

/// Writes the register of the line again from the database, under each possible setting.
class Busca {
 public:
  Busca(const OpcoesDoExplain& opcoes, const LugarNoRelatorio& lugar, const LinhaPedida& pedida)
      : opcoes_(opcoes),
        lugar_(lugar),
        pedida_(pedida),
        aberto_(opcoes.banco, std::chrono::milliseconds(opcoes.espera), kUsoErrado),
        progresso_(true),
        momento_(momentoDaLinha(pedida)),
        hospedeiro_(opcoes.pedido.identidade, momento_, aberto_.banco(), log_, progresso_) {
    aberto_.paraComSinal();
  }

  /// Empty when the database does not give the line.
  std::vector<Procedencia> procedencias(int so) {
    const IdentidadeLida identidade = leIdentidade(aberto_.banco(), hospedeiro_);
    if (!identidade.completa) falhou(sqlite3_errmsg(aberto_.banco()));
    const long vez = vezNoRelatorio(lugar_, pedida_.texto);
    for (const PedidoDeGeracao& pedido : possiveis()) {
      const Registro& registro = *pedida_.lido.registro;
      if (!registro.despachado(pedido.comando.c_str(), pedido.leiaute.versao)) continue;
      const std::string de = pedido.de.iso() + " 00:00:00", ate = pedido.ate.iso() + " 23:59:59";
      const std::string comando = pedido.comando.substr(0, 3);
      const int versao = pedido.leiaute.versao;
      Rastro rastro(aberto_.banco(), registro,
                    {versao, pedido.leiaute.cat52, larguraDoContador(versao), moduloDoContador(versao),
                     identidade.nrFabricacao, identidade.modelo, identidade.usuario, comando.c_str(),
                     de.c_str(), ate.c_str()},
                    hospedeiro_, pedida_.texto, vez);
      registro.escreve(rastro, registro);
      paraSeInterrompido();
      if (rastro.achada()) return tracadas(rastro, identidade, so);
      if (!rastro.completa()) falhou(hospedeiro_.motivo());
    }
    return {};
  }

 private:
  // What the clock said when the line was written, if it has a stamp.
  static std::string momentoDaLinha(const LinhaPedida& pedida) {
    std::string momento = "00000000 000000";
    for (std::size_t i = 0; i < pedida.lido.quantos; ++i) {
      const Origem& origem = pedida.lido.campos[i].campo->origem;
      const std::string_view bytes = pedida.lido.bytes(i);
      if (origem.tipo == Origem::Tipo::Relogio)
        momento.replace(static_cast<std::size_t>(origem.coluna), bytes.size(), bytes);
    }
    return momento;
  }

  std::vector<PedidoDeGeracao> possiveis() const {
    RelatorioLido relatorio(lugar_.arquivo);
    const AjustesDoRelatorio lidos = ajustesDe(relatorio.linhas());
    relatorio.confereLeitura();
    return pedidosPossiveis(aberto_.banco(), lidos, opcoes_.pedido.dado());
  }

  std::vector<Procedencia> tracadas(const Rastro& rastro, const IdentidadeLida& identidade, int so) const {
    std::vector<Procedencia> todas =
        cotepe::procedencias(aberto_.banco(), pedida_.lido, rastro, identidade, so);
    paraSeInterrompido();
    return todas;
  }

  [[noreturn]] void falhou(const std::string& motivo) const {
    paraSeInterrompido();
    throw Falha(kUsoErrado, frase("cannot find the rows of the line in {1}: {2}; {3} is read from it: cotepe "
                                  "check says what is missing",
                                  {opcoes_.banco, motivo, pedida_.lido.registro->codigo}));
  }

  const OpcoesDoExplain& opcoes_;
  const LugarNoRelatorio& lugar_;
  const LinhaPedida& pedida_;
  const BancoSomenteLeitura aberto_;
  ArquivoDeLog log_;
  Progresso progresso_;
  std::string momento_;
  HospedeiroDoPrograma hospedeiro_;
};

void escreve(const OpcoesDoExplain& opcoes, const LinhaExplicada& linha) {
  FluxoDeSaida fluxo;
  if (opcoes.formato == "json")
    escreveJson(fluxo, linha);
  else
    escreveTexto(fluxo, linha, SaidaDeAchados::opcoesPara(kSaidaPadrao).cores);
  fluxo.conclui();
}

void executa(const OpcoesDoExplain& opcoes) {
  const LugarNoRelatorio lugar = lugarNoRelatorio(opcoes.lugar);
  const bool doStdin = lugar.arquivo == "-";
  if (!opcoes.banco.empty()) exigeRelatorioRelivel(lugar.arquivo);
  LinhaPedida pedida;
  leLinha(lugar, pedida);
  const std::string nome = doStdin ? "stdin" : lugar.arquivo;
  LinhaExplicada linha{nome, lugar.linha, explica(pedida.lido, pedida.leiaute), {}, -1};
  linha.so = campoPedido(pedida, lugar, nome);
  if (!opcoes.banco.empty()) linha.procedencias = Busca(opcoes, lugar, pedida).procedencias(linha.so);
  escreve(opcoes, linha);
  if (!opcoes.banco.empty() && linha.procedencias.empty())
    throw Veredito(frase("{1}: not what the database gives; cotepe verify compares the whole report",
                         {lugarComLinha(nome, lugar)}));
}

}  // namespace

Acao declaraExplain(CLI::App& comando) {
  const auto o = std::make_shared<OpcoesDoExplain>();
  comando
      .add_option(
          "FILE:LINE[:COLUMN]", o->lugar,
          traduz(
              "A line of a report, or the field that holds a byte of it, both from 1; -- -:LINE for stdin"))
      ->required();
  comando.add_option("--db", o->banco, traduz("Name table, row and column too; the database is only read"))
      ->type_name("FILE");
  declaraPedido(comando, o->pedido);
  declaraEspera(comando, o->espera);
  comando.add_option("--format", o->formato, traduz("text or json (text)"))
      ->type_name("FORMAT")
      ->transform(escolha({"text", "json"}));
  comando.footer(traduz(
      "With --db the line's register is written again, and the rows are those that give the same line. What\n"
      "the report was made with is derived from it, as cotepe verify does, or given with the options above.\n"
      "Values of the database are printed as SQL would have them.\n"
      "Exit status: 0 explained, 1 the database does not give the line, 2 could not run, 4 writing failed."));
  return [o] { executa(*o); };
}

}  // namespace cotepe::programa
