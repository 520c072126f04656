#include "FormaEntregue.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "Assinatura/LinhaEad.h"
#include "Idioma/Idioma.h"
#include "NomeDaEntrega.h"
#include "Validacao/RegrasDoRelatorio.h"

namespace cotepe::programa {

const Regra kEntrega{
    "delivery", Severidade::Erro,
    marca("With --delivered: CR and LF on every line, ASCII alone, the EAD line last, and the "
          "law's name of the file."),
    marca("cotepe sign brings a report to that form")};

namespace {

bool ascii(std::string_view texto) {
  return std::all_of(texto.begin(), texto.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

FormaEntregue::FormaEntregue(RecebeAchados& saida, std::string arquivo)
    : saida_(saida), arquivo_(std::move(arquivo)) {}

void FormaEntregue::linha(const RegistroLido& lido) {
  ultima_ = lido.linha.numero;
  assinada_ = lido.assinatura();
  if (!lido.linha.comCr && !lf_) {
    lf_ = true;
    acha(ultima_, traduz("a line that does not end with CR and LF, as maybe others"), traduz("CR and LF"));
  }
  if (!naoAscii_ && !ascii(lido.linha.texto)) {
    naoAscii_ = true;
    acha(ultima_, traduz("a line with characters that are not ASCII, as maybe others"), traduz("ASCII alone"),
         validacao::kVejaOBanco);
  }
  if (assinada_) confereAssinatura(lido);
}

void FormaEntregue::confereAssinatura(const RegistroLido& lido) {
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

void FormaEntregue::acha(long linha, std::string encontrado, std::string esperado, const char* conserto) {
  Achado achado = achadoDe(kEntrega, arquivo_);
  achado.linha = linha;
  achado.encontrado = std::move(encontrado);
  achado.esperado = std::move(esperado);
  if (conserto != nullptr) achado.conserto = traduz(conserto);
  saida_.recebe(achado);
}

}  // namespace cotepe::programa
