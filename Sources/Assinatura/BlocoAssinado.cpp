#include "Assinatura/BlocoAssinado.h"

#include <algorithm>
#include <string_view>

namespace cotepe {
namespace {

constexpr std::uint8_t kTamanhoDoResumo = 16;
constexpr std::size_t kDepoisDoResumo = 1 + kTamanhoDoResumo;
constexpr std::size_t kMenosDeFF = 8;  // of PKCS#1

// DigestInfo of MD5, up to the hash (RFC 8017, 9.2).
constexpr std::array<std::uint8_t, 18> kDigestInfo = {0x30, 0x20, 0x30, 0x0c, 0x06, 0x08, 0x2a, 0x86, 0x48,
                                                      0x86, 0xf7, 0x0d, 0x02, 0x05, 0x05, 0x00, 0x04, 0x10};

ResumoMd5 resumoEm(const std::uint8_t* bytes) {
  ResumoMd5 resumo{};
  std::copy_n(bytes, resumo.size(), resumo.begin());
  return resumo;
}

// 32 digits of text; false where they are something else.
bool leTexto(const std::uint8_t* bytes, ResumoMd5& resumo) {
  for (std::size_t i = 0; i < kDigitosDoResumo; ++i) {
    const int valor = valorDoDigito(static_cast<char>(bytes[i]));
    if (valor < 0) return false;
    resumo[i / 2] = static_cast<std::uint8_t>(i % 2 == 0 ? valor << 4 : resumo[i / 2] | valor);
  }
  return true;
}

// Where the contents of PKCS#1 v1.5 begin; 0 when the block does not have that form.
std::size_t conteudoDePkcs1(const BlocoRsa& bloco) {
  if (bloco[0] != 0 || bloco[1] != 1) return 0;
  std::size_t i = 2;
  while (i < bloco.size() && bloco[i] == 0xFF) ++i;
  return i < bloco.size() && i >= 2 + kMenosDeFF && bloco[i] == 0 ? i + 1 : 0;
}

BlocoLido lePkcs1(const BlocoRsa& bloco, std::size_t inicio) {
  BlocoLido lido;
  const std::size_t tamanho = bloco.size() - inicio;
  const std::uint8_t* conteudo = bloco.data() + inicio;
  const bool comInfo = tamanho == kDigestInfo.size() + kTamanhoDoResumo &&
                       std::equal(kDigestInfo.begin(), kDigestInfo.end(), conteudo);
  lido.feitio = Feitio::Pkcs1Outro;
  if (comInfo || tamanho == kTamanhoDoResumo) {
    lido.feitio = Feitio::Pkcs1;
    lido.resumo = resumoEm(bloco.data() + bloco.size() - kTamanhoDoResumo);
  } else if (tamanho == kDigitosDoResumo && leTexto(conteudo, lido.resumo)) {
    lido.feitio = Feitio::Texto;
  }
  return lido;
}

}  // namespace

BlocoRsa compoeBloco(const ResumoMd5& resumo, FormaDoBloco forma) {
  BlocoRsa bloco{};
  if (forma == FormaDoBloco::Lei) {
    bloco[0] = kTamanhoDoResumo;
    std::copy(resumo.begin(), resumo.end(), bloco.begin() + 1);
    return bloco;
  }
  constexpr std::size_t kConteudo = kDigestInfo.size() + kTamanhoDoResumo;
  bloco.fill(0xFF);
  bloco[0] = 0;
  bloco[1] = 1;
  bloco[bloco.size() - kConteudo - 1] = 0;
  std::copy(kDigestInfo.begin(), kDigestInfo.end(), bloco.end() - kConteudo);
  std::copy(resumo.begin(), resumo.end(), bloco.end() - kTamanhoDoResumo);
  return bloco;
}

BlocoLido leBloco(const BlocoRsa& bloco) {
  BlocoLido lido;
  if (const std::size_t inicio = conteudoDePkcs1(bloco); inicio != 0) return lePkcs1(bloco, inicio);
  const bool comTamanho = bloco[0] == kTamanhoDoResumo || bloco[0] == kDigitosDoResumo;
  if (leTexto(bloco.data(), lido.resumo) || (comTamanho && leTexto(bloco.data() + 1, lido.resumo))) {
    lido.feitio = Feitio::Texto;
    return lido;
  }
  if (bloco[0] != kTamanhoDoResumo) return {};
  const bool repetido = std::all_of(bloco.begin() + kDepoisDoResumo, bloco.end(),
                                    [&](std::uint8_t byte) { return byte == bloco[kDepoisDoResumo]; });
  lido.feitio = repetido ? Feitio::Lei : Feitio::LeiLivre;
  lido.resumo = resumoEm(bloco.data() + 1);
  return lido;
}

}  // namespace cotepe
