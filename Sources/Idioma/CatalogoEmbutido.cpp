// The Portuguese catalogue inside the program, in gettext's compiled form.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "Idioma/CatalogoDeMensagens.h"
#include "Sistema/Terminal.h"

namespace cotepe {

extern const unsigned char kCatalogoPortugues[];  // generated from po/pt_BR.po

namespace {

bool g_portugues = false;

std::uint32_t numero(std::uint32_t posicao) {
  std::uint32_t valor;
  std::memcpy(&valor, kCatalogoPortugues + posicao, sizeof valor);
  return valor;
}

// The text of the i-th row of a table of lengths and places.
const char* texto(std::uint32_t tabela, std::uint32_t i) {
  return reinterpret_cast<const char*>(kCatalogoPortugues + numero(tabela + 8 * i + 4));
}

// The head of the file: a magic number, a version, a count, and the places of the messages, sorted, and of
// the translations.
const char* procura(const char* mensagem) {
  const std::uint32_t mensagens = numero(12), traducoes = numero(16);
  std::uint32_t de = 0, ate = numero(8);
  while (de < ate) {
    const std::uint32_t meio = de + (ate - de) / 2;
    const int ordem = std::strcmp(mensagem, texto(mensagens, meio));
    if (ordem == 0) return texto(traducoes, meio);
    (ordem < 0 ? ate : de) = ordem < 0 ? meio : meio + 1;
  }
  return nullptr;
}

// As gettext does: the first one that is set gives the locale, and unless that is C, LANGUAGE takes
// precedence over it.
std::string idiomaPedido() {
  std::string local = idiomaDoSistema();
  for (const char* nome : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* valor = std::getenv(nome);
    if (valor == nullptr || *valor == '\0') continue;
    local = valor;
    break;
  }
  const char* preferido = std::getenv("LANGUAGE");
  const bool semIdioma = local.empty() || local == "C" || local == "POSIX";
  return semIdioma || preferido == nullptr || *preferido == '\0' ? local : preferido;
}

}  // namespace

void abreCatalogo() { g_portugues = idiomaPedido().compare(0, 2, "pt") == 0; }

const char* doCatalogo(const char* mensagem) {
  const char* traducao = g_portugues ? procura(mensagem) : nullptr;
  return traducao != nullptr ? traducao : mensagem;
}

// The two forms follow each other; the second is for more than one, as the catalogue's head says.
const char* doCatalogo(const char* um, const char* varios, unsigned long quantos) {
  const char* traducao = g_portugues ? procura(um) : nullptr;
  if (traducao == nullptr) return quantos == 1 ? um : varios;
  return quantos > 1 ? traducao + std::strlen(traducao) + 1 : traducao;
}

}  // namespace cotepe
