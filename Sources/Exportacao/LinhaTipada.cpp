#include "Exportacao/LinhaTipada.h"

#include <algorithm>
#include <iterator>

#include "Idioma/Utf8.h"
#include "Leiaute/Releitura.h"

namespace cotepe::exportacao {
namespace {

constexpr int kAjustes = static_cast<int>(std::size(kAjustesPossiveis));

bool mostravel(char c) { return c >= ' ' && c <= '~'; }

bool soMostraveis(std::string_view bytes) { return std::all_of(bytes.begin(), bytes.end(), mostravel); }

bool mesmosCampos(const RegistroLido& lido, const FormaDoRegistro& forma) {
  return lido.quantos == forma.campos.size() &&
         std::equal(forma.campos.begin(), forma.campos.end(), lido.campos,
                    [](const CampoLido& a, const CampoLido& b) {
                      return a.campo == b.campo && a.posicao == b.posicao && a.largura == b.largura;
                    });
}

// The fields follow each other from the first byte to the last.
bool semSobras(const RegistroLido& lido) {
  int cursor = 0;
  for (std::size_t i = 0; i < lido.quantos; ++i) {
    if (lido.campos[i].posicao != cursor) return false;
    cursor += lido.campos[i].largura;
  }
  return static_cast<std::uint64_t>(cursor) == lido.linha.tamanho;
}

void poeData(std::string& texto, std::string_view b) {
  texto.assign(b.substr(0, 4)).append(1, '-').append(b.substr(4, 2)).append(1, '-').append(b.substr(6, 2));
}

void poeHora(std::string& texto, std::string_view b) {
  texto.assign(b.substr(0, 2)).append(1, ':').append(b.substr(2, 2)).append(1, ':').append(b.substr(4, 2));
}

}  // namespace

// Whether the value alone gives back the bytes.
bool LinhaTipada::leCampo(const RegistroLido& lido, std::size_t campo, ValorTipado& celula) {
  const CampoLido& lugar = lido.campos[campo];
  const std::string_view bytes = lugar.em(lido.linha.texto);
  const TabelaDoRegistro& tabela = tabelas()[static_cast<std::size_t>(lido.indice)];
  const ColunaDaTabela& coluna = tabela.colunas[static_cast<std::size_t>(lugar.numero - 1)];
  celula.tipo = coluna.tipo;
  celula.nula = true;
  const bool inteiro = bytes.size() == static_cast<std::size_t>(lugar.largura) &&
                       (lugar.campo->largura < 0 || lugar.largura >= lugar.campo->largura);
  switch (coluna.tipo) {
    case Tipo::Texto:
      if (bytes.empty()) return false;
      celula.nula = false;
      if (!soMostraveis(bytes)) {
        celula.texto = emUtf8(semBrancosNoFim(bytes));
        return false;
      }
      celula.texto = semBrancosNoFim(bytes);
      return inteiro;
    case Tipo::Data:
      if (!inteiro || !dataPossivel(bytes)) return inteiro && soBrancos(bytes);
      celula.nula = false;
      poeData(celula.texto, bytes);
      return true;
    case Tipo::Hora:
      if (!inteiro || !horaPossivel(bytes)) return inteiro && soBrancos(bytes);
      celula.nula = false;
      poeHora(celula.texto, bytes);
      return true;
    case Tipo::Digitos:
      if (!inteiro || !soDigitos(bytes)) return false;
      celula.nula = false;
      celula.texto = bytes;
      return true;
    case Tipo::Decimal: {
      const auto* const casas =
          std::find_if(lido.campos, lido.campos + lido.quantos,
                       [&coluna](const CampoLido& outro) { return outro.numero == coluna.casas + 1; });
      celula.casas = casas != lido.campos + lido.quantos && casas->em(lido.linha.texto) == "3" ? 3 : 2;
      break;
    }
    default:
      break;
  }
  if (!inteiro || !leNumero(bytes, celula.numero)) return false;
  celula.nula = false;
  return true;
}

int LinhaTipada::formaDe(const RegistroLido& lido) {
  if (!lido.medidaCerta || !semSobras(lido)) return kLiteral;
  const auto forma = [&lido](int ajuste) { return cotepe::forma(lido.indice, ajuste, false).campos.data(); };
  int& ultima = ultimas_[static_cast<std::size_t>(lido.indice)];
  if (lido.campos == forma(ultima)) return ultima;
  for (int ajuste = 0; ajuste < kAjustes; ++ajuste)
    if (lido.campos == forma(ajuste)) return ultima = ajuste;
  for (int ajuste = 0; ajuste < kAjustes; ++ajuste)
    if (mesmosCampos(lido, cotepe::forma(lido.indice, ajuste, false))) return ajuste;
  return kLiteral;
}

void LinhaTipada::le(const RegistroLido& lido) {
  const TabelaDoRegistro& tabela = tabelas()[static_cast<std::size_t>(lido.indice)];
  celulas_.resize(std::max(celulas_.size(), tabela.colunas.size()));
  for (ValorTipado& celula : celulas_) celula.nula = true;
  repetidas_.clear();
  forma_ = formaDe(lido);
  bool exata = forma_ != kLiteral;
  for (std::size_t i = 0; i < lido.quantos; ++i) {
    const auto coluna = static_cast<std::size_t>(lido.campos[i].numero - 1);
    exata = leCampo(lido, i, celulas_[coluna]) && exata;
  }
  if (!exata) forma_ = kLiteral;
  if (forma_ == kLiteral) anotaRepetidas(lido);
}

// The fields of E01, E05, E06 and E08 that come once for each row of a query.
void LinhaTipada::anotaRepetidas(const RegistroLido& lido) {
  std::vector<int> vezes(celulas_.size()), vez(celulas_.size());
  for (std::size_t i = 0; i < lido.quantos; ++i) ++vezes[static_cast<std::size_t>(lido.campos[i].numero - 1)];
  for (std::size_t i = 0; i < lido.quantos; ++i) {
    const auto coluna = static_cast<std::size_t>(lido.campos[i].numero - 1);
    if (vezes[coluna] < 2) continue;
    repetidas_.push_back({coluna, ++vez[coluna], {}});
    leCampo(lido, i, repetidas_.back().celula);
  }
}

}  // namespace cotepe::exportacao
