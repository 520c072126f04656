// cotepe report: a report as a page that opens anywhere.
#include <memory>
#include <vector>

#include "BancoSomenteLeitura.h"
#include "Comandos.h"
#include "Corrida/Corrida.h"
#include "Entrada/RelatorioLido.h"
#include "Idioma/Idioma.h"
#include "OpcoesComuns.h"
#include "Pagina/BancoDaPagina.h"
#include "Pagina/Pagina.h"
#include "Sistema/ConflitoDeArquivos.h"
#include "Sistema/Falha.h"
#include "Sistema/Progresso.h"
#include "Verificacao/Verificacao.h"

#ifdef COTEPE_ASSINA
#include "ArquivoLido.h"
#include "Assinatura/Laudo.h"
#include "FalhasDaAssinatura.h"
#include "OpcoesDaChave.h"
#endif

namespace cotepe::programa {
namespace {

using namespace cotepe::pagina;

struct OpcoesDoReport {
  std::vector<std::string> relatorios;
  std::string saida, banco, chave;
  int espera = 5000;  // milliseconds
  bool dividida = false, mascara = false, substitui = false, calado = false;
};

void confere(const OpcoesDoReport& opcoes) {
  if (opcoes.relatorios.size() > 2) throw Falha(kUsoErrado, traduz("report: one report, or two to compare"));
  for (const std::string& lido : opcoes.relatorios)
    if (lido != "-" && mesmoArquivo(lido, opcoes.saida))
      throw Falha(kUsoErrado,
                  frase("--output {1} is a report to read; choose another --output", {opcoes.saida}));
  if (!opcoes.banco.empty() && pertenceAoBanco(opcoes.saida, opcoes.banco))
    throw Falha(kUsoErrado, frase("--output {1} is the database; choose another --output", {opcoes.saida}));
  if (!opcoes.banco.empty() || !opcoes.chave.empty()) exigeRelatorioRelivel(opcoes.relatorios.front());
}

void le(LeituraDaPagina& lida, const std::string& caminho, Progresso& progresso) {
  RelatorioLido relatorio(caminho);
  progresso.etapa(relatorio.nome());
  lida.le(relatorio.linhas(), [&progresso] { progresso.pulsa(); });
  relatorio.confereLeitura();
}

// A database that does not give the report's lines still provides its hours.
void verifica(const OpcoesDoReport& opcoes, const LeituraDaPagina& lida, AchadosAgrupados& diferencas,
              DoBanco& doBanco) {
  const BancoSomenteLeitura banco(opcoes.banco, std::chrono::milliseconds(opcoes.espera), kUsoErrado);
  doBanco.nome = opcoes.banco;
  const auto [de, ate] = periodoDe(lida.resumo());
  if (!de.empty()) leDoBanco(banco.banco(), de, ate, doBanco);
  RelatorioLido relatorio(opcoes.relatorios.front());
  const AjustesDoRelatorio lidos = ajustesDe(relatorio.linhas());
  relatorio.confereLeitura();
  try {
    Verificacao verificacao({opcoes.relatorios.front(), opcoes.banco, {}, {}, opcoes.calado}, lidos,
                            banco.banco());
    verificacao.compara(diferencas);
    doBanco.ajuste = verificacao.pedidoEmPalavras();
    doBanco.diferencas = &diferencas;
  } catch (const Falha& falha) {
    if (falha.situacao() != kUsoErrado) throw;
    doBanco.semVerificar = falha.what();
  }
}

// The state of the signature in words; empty for a file without one.
std::string estadoDaAssinatura(const OpcoesDoReport& opcoes, const LeituraDaPagina& lida) {
  if (!lida.comAssinatura()) return opcoes.chave.empty() ? "" : traduz("there is none");
  if (opcoes.chave.empty()) return traduz("there is one, not verified: no public key was given");
#ifdef COTEPE_ASSINA
  exigeMd5(kUsoErrado);
  const ChavePublica chave = leChavePublica(opcoes.chave, kUsoErrado);
  const std::string& relatorio = opcoes.relatorios.front();
  const auto abre = [&relatorio]() -> LeituraDeBytes {
    return [arquivo = std::make_shared<ArquivoLido>(relatorio, kUsoErrado)](
               char* destino, std::size_t tamanho) { return arquivo->le(destino, tamanho); };
  };
  try {
    switch (verifica(abre, chave).parecer) {
      case Parecer::Valida:
        return traduz("valid: the file is what was signed with the key given");
      case Parecer::Alterada:
        return traduz("changed: file and signature do not agree");
      case Parecer::NaoSeSabe:
        break;
    }
    return traduz("cannot be told: see cotepe verify-signature");
  } catch (const ErroDaAssinatura& erro) {
    throw falhaDaAssinatura(erro, relatorio, kUsoErrado);
  }
#else
  return {};
#endif
}

// "AAAAMMDD HHMMSS" for people.
std::string momentoParaPessoas() {
  const std::string m = momentoAtual();
  return m.substr(6, 2) + '/' + m.substr(4, 2) + '/' + m.substr(0, 4) + ' ' + m.substr(9, 2) + ':' +
         m.substr(11, 2) + ':' + m.substr(13, 2);
}

void executa(const OpcoesDoReport& opcoes) {
  confere(opcoes);
  Folhas folhas(opcoes.saida, opcoes.dividida, opcoes.substitui);
  Progresso progresso(opcoes.calado);
  LeituraDaPagina lida(opcoes.relatorios.front() == "-" ? "stdin" : opcoes.relatorios.front(), opcoes.mascara,
                       true);
  le(lida, opcoes.relatorios.front(), progresso);
  std::unique_ptr<LeituraDaPagina> outra;
  if (opcoes.relatorios.size() == 2) {
    outra = std::make_unique<LeituraDaPagina>(opcoes.relatorios.back(), opcoes.mascara, false);
    le(*outra, opcoes.relatorios.back(), progresso);
  }
  AchadosAgrupados diferencas(opcoes.mascara);
  DoBanco banco;
  if (!opcoes.banco.empty()) verifica(opcoes, lida, diferencas, banco);

  ConteudoDaPagina conteudo;
  conteudo.relatorio = &lida;
  conteudo.outro = outra.get();
  conteudo.banco = opcoes.banco.empty() ? nullptr : &banco;
  conteudo.momento = momentoParaPessoas();
  conteudo.feitaPor = "cotepe " COTEPE_VERSAO;
  conteudo.assinatura = estadoDaAssinatura(opcoes, lida);
  progresso.etapa(opcoes.saida);
  escrevePagina(conteudo, folhas);
  progresso.limpa();
  if (opcoes.calado) return;
  avisa(frase("{1}: {2}, {3}", {opcoes.saida, fraseDe("{n} line", "{n} lines", lida.resumo().linhas),
                                lida.achados().total() == 0
                                    ? std::string(traduz("nothing found"))
                                    : fraseDe("{n} finding", "{n} findings", lida.achados().total())}));
}

}  // namespace

Acao declaraReport(CLI::App& comando) {
  const auto o = std::make_shared<OpcoesDoReport>();
  comando
      .add_option("REPORT", o->relatorios,
                  traduz("The report; - for stdin. A second one is compared with it, side by side"))
      ->required();
  comando.add_option("-o,--output", o->saida, traduz("The page, or with --split the folder, to make"))
      ->type_name("OUT")
      ->required();
  comando
      .add_option(
          "--db", o->banco,
          traduz("Fiscal database of the report: whether it says the same, sales by hour, grand totals"))
      ->type_name("FILE");
  declaraEspera(comando, o->espera);
#ifdef COTEPE_ASSINA
  comando.add_option("--public-key", o->chave, traduz("Public key of the one who signed: PEM or XML"))
      ->type_name("FILE");
#endif
  comando.add_flag("--split", o->dividida, traduz("A folder with a page a day, each below 5 MB"));
  comando.add_flag("--mask", o->mascara,
                   traduz("Hide what tells about consumers: name, CPF or CNPJ, texts of the coupon"));
  comando.add_flag("--force", o->substitui, traduz("Replace what an earlier run made under that name"));
  comando.add_flag("--quiet", o->calado, traduz("No summary and no progress; failures are always told"));
  comando.footer(traduz(
      "The page needs nothing but a browser: it loads nothing from anywhere and can be read without "
      "scripts.\n"
      "Exit status: 0 done, also where the report has findings, 2 could not run, 3 the output cannot be\n"
      "opened, 4 writing failed."));
  return [o] { executa(*o); };
}

}  // namespace cotepe::programa
