#include "Leitor/Forma.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <stdexcept>

#include "Leiaute/Releitura.h"

namespace cotepe {
namespace {

constexpr int kAjustes = static_cast<int>(std::size(kAjustesPossiveis));
constexpr int kRegistros = static_cast<int>(kCatalogo.size());

// Where a later field stands at a fixed position, the earlier ones end there at the latest.
void cortaOsCobertos(std::vector<CampoLido>& campos) {
  for (std::size_t i = 1; i < campos.size(); ++i)
    for (std::size_t j = 0; j < i; ++j)
      campos[j].largura = std::min(campos[j].largura, std::max(0, campos[i].posicao - campos[j].posicao));
  campos.erase(
      std::remove_if(campos.begin(), campos.end(), [](const CampoLido& c) { return c.largura == 0; }),
      campos.end());
}

void posiciona(Forma& forma, const AjusteDoLeiaute& ajuste, bool vazio, std::size_t primeiro) {
  const Campos lista = forma.registro->campos;
  int cursor = 0;
  for (std::size_t i = primeiro; i < lista.size(); ++i) {
    const Campo& campo = lista[i];
    if (!campo.existe(ajuste.versao, ajuste.cat52)) continue;
    if (campo.posicao != 0) cursor = campo.posicao - 1;
    const int largura = larguraNominal(campo, ajuste.versao);
    forma.campos.push_back({&campo, static_cast<int>(i) + 1, cursor, largura});
    if (campo.desloca) forma.deslocavel = static_cast<int>(forma.campos.size()) - 1;
    cursor += vazio && campo.naoAvancaVazio ? 0 : largura;
  }
  forma.comprimento = cursor;
  cortaOsCobertos(forma.campos);
}

void preencheVazio(Forma& forma) {
  forma.vazio.assign(static_cast<std::size_t>(forma.comprimento), ' ');
  bool cabecalho = true;
  for (const CampoLido& lido : forma.campos) {
    cabecalho = cabecalho && lido.campo->origem.fixa();
    if (cabecalho) forma.inicioVazio = lido.posicao + lido.largura;
    const char c = numerica(lido.campo->especie) ? '0' : ' ';
    std::fill_n(forma.vazio.begin() + lido.posicao, lido.largura, c);
  }
  forma.vazio.erase(0, static_cast<std::size_t>(forma.inicioVazio));
}

// The placeholder of E07 is the register's own fields alone.
std::size_t primeiroCampo(const Registro& registro, bool vazio) {
  return vazio && &registro == &kE07 ? 4 : 0;
}

Forma faz(int registro, const AjusteDoLeiaute& ajuste, bool vazio) {
  Forma forma;
  forma.indice = registro;
  forma.registro = kCatalogo[static_cast<std::size_t>(registro)];
  posiciona(forma, ajuste, vazio, primeiroCampo(*forma.registro, vazio));
  preencheVazio(forma);
  return forma;
}

using Formas = std::array<std::array<std::array<Forma, 2>, kAjustes>, kRegistros>;

Formas fazTodas() {
  Formas formas;
  for (int r = 0; r < kRegistros; ++r)
    for (int a = 0; a < kAjustes; ++a)
      for (const bool vazio : {false, true})
        formas[static_cast<std::size_t>(r)][static_cast<std::size_t>(a)][vazio ? 1 : 0] =
            faz(r, kAjustesPossiveis[a], vazio);
  return formas;
}

}  // namespace

const Forma& forma(int registro, int ajuste, bool vazio) {
  static const Formas formas = fazTodas();
  return formas[static_cast<std::size_t>(registro)][static_cast<std::size_t>(ajuste)][vazio ? 1 : 0];
}

int indiceDoRegistro(std::string_view codigo) noexcept {
  if (codigo.size() != 3 || codigo[0] != 'E' || codigo[1] < '0' || codigo[1] > '9') return -1;
  if (codigo[2] < '0' || codigo[2] > '9') return -1;
  const int numero = (codigo[1] - '0') * 10 + (codigo[2] - '0');
  return numero >= 1 && numero <= kRegistros ? numero - 1 : -1;
}

int indiceDoCampo(const Registro& registro, std::string_view rotulo) {
  for (std::size_t i = 0; i < registro.campos.size(); ++i)
    if (registro.campos[i].rotulo == rotulo) return static_cast<int>(i);
  throw std::logic_error(std::string(registro.codigo) + " has no field " + std::string(rotulo));
}

}  // namespace cotepe
