#include "Pagina/Modelo.h"

#include "Idioma/Idioma.h"
#include "Pagina/Html.h"
#include "Pagina/PartesDoModelo.h"

namespace cotepe::pagina {
namespace {

int digito(char c) { return c <= '9' ? c - '0' : c - 'a' + 10; }

// The form in which a policy names a digest.
std::string base64(const std::string& hexadecimal) {
  static constexpr char kLetras[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string texto64;
  unsigned bits = 0, quantos = 0;
  for (const char c : hexadecimal) {
    bits = bits << 4 | static_cast<unsigned>(digito(c));
    for (quantos += 4; quantos >= 6; quantos -= 6) texto64 += kLetras[bits >> (quantos - 6) & 63];
  }
  if (quantos != 0) texto64 += kLetras[bits << (6 - quantos) & 63];
  while (texto64.size() % 4 != 0) texto64 += '=';
  return texto64;
}

void troca(std::string& modelo, const std::string& lugar, const std::string& texto) {
  const std::size_t onde = modelo.find(lugar);
  if (onde != std::string::npos) modelo.replace(onde, lugar.size(), texto);
}

}  // namespace

std::string inicioDoModelo(const std::string& titulo) {
  std::string modelo = kModelo;
  modelo.erase(modelo.find("{conteudo}"));
  troca(modelo, "{idioma}", traduz("en"));
  troca(modelo, "{politica}",
        "default-src 'none'; style-src 'sha256-" + base64(kDigestoDoEstilo) + "'; script-src 'sha256-" +
            base64(kDigestoDoRoteiro) + "'; base-uri 'none'; form-action 'none'");
  troca(modelo, "{titulo}", texto(titulo));
  troca(modelo, "{estilo}", kEstilo);
  return modelo;
}

std::string filtro() {
  return "<p id=\"filtro\" hidden><label>" + std::string(traduz("Only documents with")) +
         " <input type=\"search\"></label> <output></output></p>\n";
}

std::string fimDoModelo() {
  std::string modelo = kModelo;
  modelo.erase(0, modelo.find("{conteudo}") + 10);
  troca(modelo, "{roteiro}", kRoteiro);
  return modelo;
}

}  // namespace cotepe::pagina
