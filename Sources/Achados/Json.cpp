#include "Achados/Json.h"

#include <nlohmann/json.hpp>

#include "Idioma/Utf8.h"

namespace cotepe {

std::string textoJson(std::string_view texto) { return nlohmann::json(emUtf8(texto)).dump(); }

std::string uriDoArquivo(std::string_view nome) {
  constexpr char kHexadecimais[] = "0123456789ABCDEF";
  constexpr std::string_view kLivres = "-._~/";
  std::string saida;
  for (const char c : nome) {
    const bool livre = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                       kLivres.find(c) != std::string_view::npos;
    if (livre) {
      saida += c;
      continue;
    }
    saida += '%';
    saida += kHexadecimais[static_cast<unsigned char>(c) >> 4];
    saida += kHexadecimais[static_cast<unsigned char>(c) & 15];
  }
  return saida;
}

}  // namespace cotepe
