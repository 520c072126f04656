// Any bytes as a report: read, and shown in every format.
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string_view>

#include "Exibicao/Exibicao.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
  using namespace cotepe;
  const std::string_view texto(reinterpret_cast<const char*>(dados), tamanho);
  for (const auto formato : {FormatoDeExibicao::Texto, FormatoDeExibicao::Tabela, FormatoDeExibicao::Json,
                             FormatoDeExibicao::Csv, FormatoDeExibicao::CsvDeUmRegistro}) {
    std::ostringstream saida;
    const auto exibicao = novaExibicao(formato, saida, formato == FormatoDeExibicao::Csv);
    LeitorDeLinhas linhas(texto);
    LeitorDeRegistros registros(linhas);
    for (RegistroLido lido; registros.proximo(lido);) exibicao->mostra(lido);
  }
  return 0;
}
