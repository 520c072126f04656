// The micro figures: each kind of field, a whole record of each register, the money round trip.
#include <benchmark/benchmark.h>

#include <cstring>
#include <string>

#include "Financial.h"
#include "HospedeiroParado.h"
#include "Leiaute/Composicao.h"
#include "Leiaute/Especies.h"
#include "Leiaute/Texto.h"
#include "LinhaDeExemplo.h"
#include "Registros/Catalogo.h"

namespace {

constexpr long kLinhas = 1000;

// One field put on the line, from its text to its characters.
void campo(benchmark::State& estado, const cotepe::Campo& campo) {
  bench::HospedeiroParado hospedeiro;
  const cotepe::Campos campos(&campo, 1);
  const bench::ExecucaoDeExemplo execucao(bench::ajustesDeExemplo(1), hospedeiro, campos, 1);
  const bench::LinhaDeExemplo fonte(campos, 1);
  cotepe::Linha linha;
  for (auto _ : estado) {
    linha.limpa();
    cotepe::compoe(linha, campos, fonte, execucao);
    benchmark::DoNotOptimize(linha.texto().data());
  }
}

// A register's own writer over rows that cost nothing; an item is a record.
void registro(benchmark::State& estado, const cotepe::Registro& registro, int versao) {
  bench::HospedeiroParado hospedeiro;
  long bytes = 0;
  for (auto _ : estado) {
    bench::ExecucaoDeExemplo execucao(bench::ajustesDeExemplo(versao), hospedeiro, registro.campos, kLinhas);
    registro.escreve(execucao, registro);
    bytes = execucao.bytes();
  }
  estado.SetItemsProcessed(estado.iterations() * kLinhas);
  estado.SetBytesProcessed(estado.iterations() * bytes);
}

// The amount from the database's text to cents as the generator reads it, and through the type's own text.
void dinheiroDireto(benchmark::State& estado, const char* texto) {
  for (auto _ : estado) {
    benchmark::DoNotOptimize(texto);
    benchmark::DoNotOptimize(Financial::CentavosDoBanco(texto));
  }
}

void dinheiroPorTexto(benchmark::State& estado, const char* texto) {
  char area[64];
  for (auto _ : estado) {
    std::strcpy(area, texto);
    cotepe::trocaCaractere(area, '.', ',');
    Financial valor;
    valor = area;
    valor.ToString(area, sizeof area, FIN_STR_DEFAULT, 0, 0);
    cotepe::removeCaractere(area, ',');
    benchmark::DoNotOptimize(cotepe::leInteiro(area));
  }
}

void registraCampos() {
  using namespace cotepe;
  static const struct {
    const char* nome;
    Campo campo;
  } kCampos[] = {{"Texto", texto("", 40, coluna(0))},
                 {"ComoEsta", letra("", coluna(0))},
                 {"Preenchido", preenchido("", 14, coluna(0))},
                 {"Numero", numeroModulo("", 6, 1000000, coluna(0))},
                 {"Contador", contador("", coluna(0))},
                 {"Identificador", cnpj("", coluna(0))},
                 {"Dinheiro", dinheiro("", 14, coluna(0))},
                 {"DinheiroDuplo", dinheiroDuplo("", 13, coluna(0))},
                 {"Decimal", decimal("", 8, coluna(0))},
                 {"Data", data("", coluna(0))},
                 {"Hora", hora("", coluna(0))},
                 {"DataPronta", dataPronta("", coluna(0))},
                 {"HoraPronta", horaPronta("", coluna(0))}};
  for (const auto& [nome, c] : kCampos)
    benchmark::RegisterBenchmark((std::string("campo/") + nome).c_str(), campo, c);
}

void registraRegistros() {
  for (const cotepe::Registro* r : cotepe::kCatalogo) {
    for (const int versao : {1, 2}) {
      const std::string nome = std::string("registro/") + r->codigo + "/leiaute:" + std::to_string(versao);
      benchmark::RegisterBenchmark(nome.c_str(), registro, *r, versao);
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  registraCampos();
  registraRegistros();
  for (const char* texto : {"0", "226.06", "9999999999999.99"}) {
    benchmark::RegisterBenchmark((std::string("dinheiro/direto/") + texto).c_str(), dinheiroDireto, texto);
    benchmark::RegisterBenchmark((std::string("dinheiro/por texto/") + texto).c_str(), dinheiroPorTexto,
                                 texto);
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}
