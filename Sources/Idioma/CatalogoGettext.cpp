#include <libintl.h>

#include <clocale>

#include "Idioma/CatalogoDeMensagens.h"
#include "Sistema/Terminal.h"

namespace cotepe {
namespace {

constexpr const char* kDominio = "cotepe";

}  // namespace

void abreCatalogo() {
  static_cast<void>(std::setlocale(LC_MESSAGES, ""));  // an unknown locale stays C: English
  const std::string pasta = pastaDoPrograma();
  if (pasta.empty()) return;
  bindtextdomain(kDominio, (pasta + "/" COTEPE_LOCALIDADES).c_str());
  bind_textdomain_codeset(kDominio, "UTF-8");
  bind_textdomain_codeset("libc", "UTF-8");  // the system's reasons, without LC_CTYPE
}

const char* doCatalogo(const char* mensagem) { return dgettext(kDominio, mensagem); }

const char* doCatalogo(const char* um, const char* varios, unsigned long quantos) {
  return dngettext(kDominio, um, varios, quantos);
}

}  // namespace cotepe
