#include "Numero.h"

#include <charconv>
#include <string>
#include <system_error>

namespace cotepe::programa {

CLI::Validator numeroDesde(long menor) {
  const auto recusa = [menor](const std::string& texto) {
    long valor = 0;
    const char* fim = texto.data() + texto.size();
    const auto lido = std::from_chars(texto.data(), fim, valor);
    const bool serve = lido.ec == std::errc() && lido.ptr == fim && valor >= menor;
    return serve
               ? std::string()
               : (texto.empty() ? "nothing" : texto) + " is no number from " + std::to_string(menor) + " on";
  };
  return {recusa, ""};
}

}  // namespace cotepe::programa
