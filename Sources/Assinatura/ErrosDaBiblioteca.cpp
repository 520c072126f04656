#include "Assinatura/ErrosDaBiblioteca.h"

#include <openssl/err.h>
#include <openssl/evp.h>

namespace cotepe {

std::string erroDaBiblioteca() {
  const unsigned long erro = ERR_peek_error();
  ERR_clear_error();
  if (erro == 0) return {};
  char texto[256];
  ERR_error_string_n(erro, texto, sizeof texto);
  return texto;
}

bool algoritmoFaltando() {
  const unsigned long erro = ERR_peek_error();
  const int motivo = ERR_GET_REASON(erro);
  return motivo == ERR_R_UNSUPPORTED || motivo == EVP_R_UNSUPPORTED_ALGORITHM;
}

}  // namespace cotepe
