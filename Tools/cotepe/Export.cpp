// cotepe export: reports as a database, as CSV files, as a spreadsheet.
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

#include "Comandos.h"
#include "Entrada/RelatorioLido.h"
#include "Exportacao/BancoExportado.h"
#include "Exportacao/Exportacao.h"
#include "Exportacao/PastaDeCsv.h"
#include "Exportacao/Planilha.h"
#include "Idioma/Idioma.h"
#include "Sistema/ConflitoDeArquivos.h"
#include "Sistema/PalavrasDoArquivo.h"
#include "Sistema/Progresso.h"
#include "Sistema/Sinais.h"
#include "Valores.h"

namespace cotepe::programa {
namespace {

using namespace cotepe::exportacao;

struct OpcoesDoExport {
  std::vector<std::string> relatorios;
  std::string formato, saida;
  bool substitui = false, calado = false;
};

/// Counts what passes.
class Contado final : public DestinoDaExportacao {
 public:
  explicit Contado(DestinoDaExportacao& destino) : destino_(destino) {}

  void registro(const ArquivoExportado& arquivo, const RegistroLido& lido,
                const LinhaTipada& linha) override {
    destino_.registro(arquivo, lido, linha);
  }
  void literal(const ArquivoExportado& arquivo, long linha, std::string_view bytes) override {
    ++literais;
    destino_.literal(arquivo, linha, bytes);
  }
  void arquivo(const ArquivoExportado& arquivo) override {
    linhas += arquivo.linhas;
    destino_.arquivo(arquivo);
  }
  void conclui() override { destino_.conclui(); }

  long linhas = 0, literais = 0;

 private:
  DestinoDaExportacao& destino_;
};

void exigeOutroArquivo(const OpcoesDoExport& opcoes) {
  for (const std::string& relatorio : opcoes.relatorios)
    if (relatorio != "-" && mesmoArquivo(relatorio, opcoes.saida))
      throw Falha(kUsoErrado,
                  frase("--output {1} is a report to read; choose another --output", {opcoes.saida}));
}

void leTodos(const OpcoesDoExport& opcoes, DestinoDaExportacao& destino, Progresso& progresso) {
  long numero = 0;
  for (const std::string& caminho : opcoes.relatorios) {
    RelatorioLido relatorio(caminho, true);
    progresso.etapa(relatorio.nome());
    exporta(relatorio.linhas(), ++numero, relatorio.nome(), destino, [&progresso] { progresso.pulsa(); });
    relatorio.confereLeitura();
  }
  progresso.etapa(opcoes.saida);
  destino.conclui();
  progresso.limpa();
}

void diz(const OpcoesDoExport& opcoes, const Contado& contado, const Progresso& progresso) {
  if (opcoes.calado) return;
  char segundos[32];
  static_cast<void>(std::snprintf(segundos, sizeof segundos, "%.1f", progresso.segundos()));
  const std::string quantos =
      fraseDe("{n} report", "{n} reports", static_cast<long long>(opcoes.relatorios.size()));
  avisa(frase(
      "{1}: {2}, {3} lines, {4} of them kept as they stand, {5} s",
      {opcoes.saida, quantos, std::to_string(contado.linhas), std::to_string(contado.literais), segundos}));
}

void exportaEmBanco(const OpcoesDoExport& opcoes) {
  emPalavras([&opcoes] {
    exigeDestino(opcoes.saida, opcoes.substitui);
    Progresso progresso(opcoes.calado);
    ArquivoSeguro arquivo(opcoes.saida);
    BancoExportado banco(arquivo.temporario(), opcoes.saida);
    Contado contado(banco);
    leTodos(opcoes, contado, progresso);
    arquivo.publica(opcoes.saida, opcoes.substitui);
    diz(opcoes, contado, progresso);
  });
}

void exportaEmCsv(const OpcoesDoExport& opcoes) {
  Progresso progresso(opcoes.calado);
  PastaDeCsv pasta(opcoes.saida, opcoes.substitui);
  Contado contado(pasta);
  leTodos(opcoes, contado, progresso);
  diz(opcoes, contado, progresso);
}

// Goes through a temporary database, which has the views.
void exportaEmPlanilha(const OpcoesDoExport& opcoes) {
  if (!fazPlanilhas())
    throw Falha(kUsoErrado,
                traduz("--to xlsx: this cotepe was built without libxlsxwriter; use sqlite or csv"));
  emPalavras([&opcoes] {
    exigeDestino(opcoes.saida, opcoes.substitui);
    Progresso progresso(opcoes.calado);
    BancoExportado banco("", opcoes.saida);
    Contado contado(banco);
    leTodos(opcoes, contado, progresso);
    ArquivoSeguro arquivo(opcoes.saida);
    escrevePlanilha(banco.banco(), arquivo.temporario(), opcoes.saida, [&progresso] {
      paraSeInterrompido();
      progresso.pulsa();
    });
    progresso.limpa();
    arquivo.publica(opcoes.saida, opcoes.substitui);
    diz(opcoes, contado, progresso);
  });
}

void executa(const OpcoesDoExport& opcoes) {
  exigeOutroArquivo(opcoes);
  if (opcoes.formato == "xlsx") return exportaEmPlanilha(opcoes);
  if (opcoes.formato == "sqlite") return exportaEmBanco(opcoes);
  exportaEmCsv(opcoes);
}

}  // namespace

Acao declaraExport(CLI::App& comando) {
  const auto o = std::make_shared<OpcoesDoExport>();
  comando.add_option("REPORT", o->relatorios, traduz("The reports; - for stdin"))->required();
  comando
      .add_option("--to", o->formato,
                  traduz("sqlite (a database), csv (a folder of files) or xlsx (a spreadsheet)"))
      ->type_name("FORMAT")
      ->transform(escolha({"sqlite", "csv", "xlsx"}))
      ->required();
  comando.add_option("-o,--output", o->saida, traduz("The database, the folder or the spreadsheet to make"))
      ->type_name("OUT")
      ->check([](const std::string& texto) { return texto.empty() ? traduz("empty name") : ""; })
      ->required();
  comando.add_flag("--force", o->substitui, traduz("Replace what an earlier run made under that name"));
  comando.add_flag("--quiet", o->calado, traduz("No summary and no progress; failures are always told"));
  comando.footer(traduz(
      "One table a register, named as in the file; the columns are the keys of cotepe layout, before them "
      "the\n"
      "number of the report and of the line. Money is in cents in a database; dates are YYYY-MM-DD. A line\n"
      "whose bytes do not follow from its columns is kept as it stands, so that every report can be written\n"
      "again, byte for byte.\n"
      "Exit status: 0 done, 2 could not run, 3 the output cannot be opened, 4 writing failed."));
  return [o] { executa(*o); };
}

}  // namespace cotepe::programa
