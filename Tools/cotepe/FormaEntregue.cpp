#include "FormaEntregue.h"

#include <filesystem>
#include <utility>

#include "Assinatura/LinhaEad.h"
#include "Idioma/Idioma.h"
#include "NomeDaEntrega.h"

namespace cotepe::programa {

FormaEntregue::FormaEntregue(RecebeAchados& saida, std::string arquivo)
    : saida_(saida), arquivo_(std::move(arquivo)) {}

void FormaEntregue::linha(const RegistroLido& lido) {
  ultima_ = lido.linha.numero;
  assinada_ = lido.assinatura();
  if (!lido.linha.comCr && !lf_) {
    lf_ = true;
    acha(ultima_, traduz("a line that does not end with CR and LF, as maybe others"), traduz("CR and LF"));
  }
  if (!assinada_) return;
  const LinhaEad ead = leEad(lido.linha.texto);
  if (ead.forma != FormaDaEad::Assinatura || ead.sobra != 0)
    acha(ultima_,
         fraseDe("{n} hexadecimal digit", "{n} hexadecimal digits", static_cast<long long>(ead.digitos)),
         traduz("EAD and 256 hexadecimal digits"));
}

void FormaEntregue::fim() {
  if (!assinada_) acha(ultima_, traduz("another line at the end"), traduz("the EAD line last"));
  const std::string nome = std::filesystem::path(arquivo_).filename().string();
  if (!nomeDaLei(nome)) acha(0, nome, traduz("a name as COMMANDserial_yyyymmdd_hhmmss.TXT"));
}

void FormaEntregue::acha(long linha, std::string encontrado, std::string esperado) {
  Achado achado;
  achado.regra = "delivery";
  achado.arquivo = arquivo_;
  achado.linha = linha;
  achado.encontrado = std::move(encontrado);
  achado.esperado = std::move(esperado);
  achado.conserto = traduz("cotepe sign brings a report to that form");
  saida_.recebe(achado);
}

}  // namespace cotepe::programa
