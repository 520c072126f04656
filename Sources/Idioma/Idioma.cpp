#include "Idioma/Idioma.h"

#include <system_error>

#include "Idioma/CatalogoDeMensagens.h"

namespace cotepe {
namespace {

// What systems say, for a catalogue that is used where the system itself speaks only English.
[[maybe_unused]] constexpr const char* kMotivos[] = {
    marca("No such file or directory"), marca("Not a directory"),     marca("Is a directory"),
    marca("Permission denied"),         marca("File exists"),         marca("File too large"),
    marca("No space left on device"),   marca("Broken pipe"),         marca("Input/output error"),
    marca("Bad file descriptor"),       marca("Invalid argument"),    marca("Filename too long"),
    marca("Not enough space"),          marca("Too many open files"),
};

int g_emIngles = 0;  // how many there are of them

// What fills a place such as "{1}" or "{n}"; null when these three bytes are not a place, or nothing is given
// for it.
const std::string_view* parteDe(std::string_view lugar, const std::string_view& contagem, Partes partes) {
  if (lugar == "{n}") return contagem.empty() ? nullptr : &contagem;
  if (lugar.size() != 3 || lugar[2] != '}' || lugar[1] < '1' || lugar[1] > '9') return nullptr;
  const auto indice = static_cast<std::size_t>(lugar[1] - '1');
  return indice < partes.size() ? partes.begin() + indice : nullptr;
}

std::string preenche(std::string_view modelo, const std::string_view& contagem, Partes partes) {
  std::string texto;
  for (std::size_t abre = modelo.find('{'); abre != std::string_view::npos; abre = modelo.find('{')) {
    const std::string_view* parte = parteDe(modelo.substr(abre, 3), contagem, partes);
    texto.append(modelo, 0, parte != nullptr ? abre : abre + 1).append(parte != nullptr ? *parte : "");
    modelo.remove_prefix(parte != nullptr ? abre + 3 : abre + 1);
  }
  return texto.append(modelo);
}

}  // namespace

void escolheIdioma() { abreCatalogo(); }

EmIngles::EmIngles() { ++g_emIngles; }
EmIngles::~EmIngles() { --g_emIngles; }

const char* traduz(const char* mensagem) {
  // The empty message is the catalogue's head.
  return mensagem[0] != '\0' && g_emIngles == 0 ? doCatalogo(mensagem) : mensagem;
}

std::string motivoDoSistema(int codigo) {
  const std::string motivo = std::generic_category().message(codigo);
  return motivo.empty() ? motivo : traduz(motivo.c_str());
}

std::string preenche(const char* modelo, Partes partes) { return preenche(modelo, {}, partes); }

std::string frase(const char* modelo, Partes partes) { return preenche(traduz(modelo), {}, partes); }

std::string contado(long long quantos) {
  const char separador = traduz("1,000")[1];
  std::string texto = std::to_string(quantos);
  const std::size_t inicio = quantos < 0 ? 1 : 0;
  for (std::size_t i = texto.size(); i > inicio + 3; i -= 3) texto.insert(i - 3, 1, separador);
  return texto;
}

std::string fraseDe(const char* um, const char* varios, long long quantos, Partes partes) {
  const auto forma = static_cast<unsigned long>(quantos);
  const char* modelo = g_emIngles == 0 ? doCatalogo(um, varios, forma) : quantos == 1 ? um : varios;
  return preenche(modelo, std::to_string(quantos), partes);
}

}  // namespace cotepe
