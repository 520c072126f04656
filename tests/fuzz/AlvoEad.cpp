// Any bytes as an EAD line and as a file that may have one: in pieces of every size the same comes out, and
// what is made CR/LF once stays as it is.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "Assinatura/BlocoAssinado.h"
#include "Assinatura/FormaDeEntrega.h"

namespace {

using namespace cotepe;

std::string passa(std::string_view texto, std::size_t pedaco, long& eads) {
  std::string saida;
  FormaDeEntrega forma(FinsDeLinha::CrLf, [&](std::string_view bytes) { saida += bytes; });
  for (std::size_t i = 0; i < texto.size(); i += pedaco) forma.passa(texto.substr(i, pedaco));
  forma.termina();
  eads = forma.eads();
  return saida;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
  const std::string_view texto(reinterpret_cast<const char*>(dados), tamanho);
  const LinhaEad lida = leEad(texto);
  const LinhaEad escrita = leEad(escreveEad(lida.assinatura));
  if (escrita.forma != FormaDaEad::Assinatura || escrita.assinatura != lida.assinatura) std::abort();
  leBloco(lida.assinatura);
  long eads = 0, outras = 0;
  const std::string inteiro = passa(texto, texto.size() + 1, eads);
  if (passa(texto, 1, outras) != inteiro || outras != eads) std::abort();
  if (eads == 0 && passa(inteiro, 7, outras) != inteiro) std::abort();
  return 0;
}
