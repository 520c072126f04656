#include "Idioma/Idioma.h"

#include <libintl.h>

#include <clocale>
#include <filesystem>
#include <system_error>

namespace cotepe {
namespace {

constexpr const char* kDominio = "cotepe";

// What fills a place such as "{1}" or "{n}"; null where these three bytes are none, or nothing is given for
// it.
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

void escolheIdioma() {
  static_cast<void>(std::setlocale(LC_MESSAGES, ""));  // an unknown locale stays C: English
  std::error_code erro;
  const auto executavel = std::filesystem::read_symlink("/proc/self/exe", erro);
  if (erro) return;
  bindtextdomain(kDominio, (executavel.parent_path() / COTEPE_LOCALIDADES).c_str());
  bind_textdomain_codeset(kDominio, "UTF-8");
  bind_textdomain_codeset("libc", "UTF-8");  // the system's reasons, without LC_CTYPE
}

const char* traduz(const char* mensagem) {
  return mensagem[0] != '\0' ? dgettext(kDominio, mensagem)
                             : mensagem;  // the empty message is the catalogue's head
}

std::string preenche(const char* modelo, Partes partes) { return preenche(modelo, {}, partes); }

std::string frase(const char* modelo, Partes partes) { return preenche(traduz(modelo), {}, partes); }

std::string fraseDe(const char* um, const char* varios, long long quantos, Partes partes) {
  const auto forma = static_cast<unsigned long>(quantos);
  return preenche(dngettext(kDominio, um, varios, forma), std::to_string(quantos), partes);
}

}  // namespace cotepe
