#include "LinhaDeExemplo.h"

#include "Leiaute/Linha.h"

namespace bench {
namespace {

using cotepe::Especie;

constexpr char kTexto[] = "REFRIGERANTE GUARANA GF 2L";

const char* exemploDe(const cotepe::Campo& campo) {
  switch (campo.especie) {
    case Especie::Texto:
    case Especie::Preenchido:
      return campo.largura < 10 ? "03T" : kTexto;
    case Especie::ComoEsta:
      return "N";
    case Especie::Numero:
      return "3";
    case Especie::Contador:
      return "43679";
    case Especie::Identificador:
      return "12345678000190";
    case Especie::Dinheiro:
    case Especie::DinheiroDuplo:
      return "226.06";
    case Especie::Decimal:
      return "39.9";
    case Especie::Data:
    case Especie::Hora:
      return "2024-01-31 12:34:56";
    case Especie::DataPronta:
      return "20240131";
    case Especie::HoraPronta:
      return "123456";
  }
  return "";
}

}  // namespace

LinhaDeExemplo::LinhaDeExemplo(cotepe::Campos campos, long linhas) : restam_(linhas) {
  textos_.fill("2");
  for (const cotepe::Campo& campo : campos)
    if (campo.origem.coluna >= 0) textos_[static_cast<std::size_t>(campo.origem.coluna)] = exemploDe(campo);
}

std::unique_ptr<cotepe::Leitura> ExecucaoDeExemplo::consulta(const char* /*sql*/) {
  return std::make_unique<LinhaDeExemplo>(campos_, linhas_);
}

void ExecucaoDeExemplo::grava(cotepe::Linha& linha) {
  bytes_ += static_cast<long>(linha.comFimDeLinha().size());
}

cotepe::Ajustes ajustesDeExemplo(int versao) {
  cotepe::Ajustes ajustes;
  ajustes.versao = versao;
  ajustes.larguraDoContador = cotepe::larguraDoContador(versao);
  ajustes.moduloDoContador = cotepe::moduloDoContador(versao);
  ajustes.nrFabricacao = "BR010203040506070809";
  ajustes.modelo = "ECF-IF";
  ajustes.usuario = "1";
  ajustes.comando = "TDM";
  ajustes.dataHoraInicial = "2024-01-01 00:00:00";
  ajustes.dataHoraFinal = "2024-12-31 23:59:59";
  return ajustes;
}

}  // namespace bench
