// Any bytes as a public key in XML: what is read is written, and read again the same.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "Assinatura/ChaveXml.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
  using namespace cotepe;
  ChaveXml lida, outra;
  if (leChaveXml({reinterpret_cast<const char*>(dados), tamanho}, lida) != FaltaDaChaveXml::Nenhuma) return 0;
  if (leChaveXml(escreveChaveXml(lida), outra) != FaltaDaChaveXml::Nenhuma) std::abort();
  if (outra.nome != lida.nome || outra.modulo != lida.modulo || outra.expoente != lida.expoente) std::abort();
  return 0;
}
