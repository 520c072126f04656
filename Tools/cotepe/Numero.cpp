#include "Numero.h"

#include <charconv>
#include <string>
#include <system_error>

#include "Idioma/Idioma.h"

namespace cotepe::programa {

CLI::Validator numeroDesde(long menor) {
  const auto recusa = [menor](const std::string& texto) {
    long valor = 0;
    const char* fim = texto.data() + texto.size();
    const auto lido = std::from_chars(texto.data(), fim, valor);
    const bool serve = lido.ec == std::errc() && lido.ptr == fim && valor >= menor;
    return serve ? std::string()
                 : frase("{1} is no number from {2} on",
                         {texto.empty() ? traduz("nothing") : texto, std::to_string(menor)});
  };
  return {recusa, ""};
}

}  // namespace cotepe::programa
