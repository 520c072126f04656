// Any bytes as a report: validated, the findings written in every format.
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string_view>

#include "Achados/SaidaDeAchados.h"
#include "Validacao/Validacao.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
  using namespace cotepe;
  const std::string_view texto(reinterpret_cast<const char*>(dados), tamanho);
  for (const auto formato : {FormatoDeAchados::Texto, FormatoDeAchados::Json, FormatoDeAchados::Sarif}) {
    std::ostringstream fluxo;
    SaidaDeAchados::Opcoes opcoes;
    opcoes.formato = formato;
    opcoes.comLinha = true;
    SaidaDeAchados saida(fluxo, opcoes);
    LeitorDeLinhas linhas(texto);
    Validacao(saida, {"r.txt", {}}).valida(linhas);
    saida.termina();
  }
  return 0;
}
