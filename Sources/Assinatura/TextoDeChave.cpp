#include "Assinatura/TextoDeChave.h"

#include <openssl/crypto.h>

#include <cerrno>
#include <cstdio>
#include <memory>

#include "Assinatura/ErroDaAssinatura.h"
#include "Sistema/Arquivo.h"

namespace cotepe {

void apagaSegredo(std::string& segredo) noexcept {
  OPENSSL_cleanse(segredo.data(), segredo.size());
  segredo.clear();
}

TextoDeChave::TextoDeChave(const std::string& caminho) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> arquivo(abreFluxo(caminho, "rb"), std::fclose);
  if (arquivo == nullptr) throw ErroDaAssinatura(ProblemaDaAssinatura::ChaveNaoAbre, errno);
  static_cast<void>(std::setvbuf(arquivo.get(), nullptr, _IONBF, 0));  // its buffer would keep the key
  texto_.resize(kMaximo + 1);
  texto_.resize(std::fread(texto_.data(), 1, texto_.size(), arquivo.get()));
  if (std::ferror(arquivo.get()) != 0) throw ErroDaAssinatura(ProblemaDaAssinatura::ChaveNaoAbre, errno);
  if (texto_.size() > kMaximo) throw ErroDaAssinatura(ProblemaDaAssinatura::ChaveIlegivel);
}

}  // namespace cotepe
