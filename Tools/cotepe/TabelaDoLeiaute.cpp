#include "TabelaDoLeiaute.h"

#include <string_view>
#include <tuple>

#include "Idioma/Idioma.h"
#include "Leiaute/Chave.h"
#include "Leiaute/Disposicao.h"
#include "Leiaute/Releitura.h"

namespace cotepe::programa {
namespace {

const char* nomeDaEspecie(const Campo& campo) {
  switch (campo.especie) {
    case Especie::Texto:
    case Especie::Preenchido:
      return marca("text");
    case Especie::ComoEsta:
      return marca("text, never filled");
    case Especie::Numero:
      return marca("number");
    case Especie::Contador:
      return marca("document counter");
    case Especie::Identificador:
      return marca("unsigned number");
    case Especie::Dinheiro:
    case Especie::DinheiroDuplo:
      return marca("money in cents");
    case Especie::Decimal:
      return campo.colunaDasCasas >= 0 ? marca("decimal, 2 or 3 places") : marca("decimal, 2 places");
    case Especie::Data:
    case Especie::DataPronta:
      return marca("date AAAAMMDD");
    case Especie::Hora:
    case Especie::HoraPronta:
      return marca("hour HHMMSS");
  }
  return "";
}

// The fields before the first one of a row are in a placeholder record as in any other, and so is what the
// clock says.
Dito vazioDe(const Registro& registro, const Campo& campo, bool noCabecalho) {
  if (&campo < registro.camposVazios.begin()) return {marca("left out"), ""};
  if (noCabecalho || campo.origem.tipo == Origem::Tipo::Relogio) return {marca("as in a record"), ""};
  if (campo.textoVazio != nullptr) return {"\"{1}\"", campo.textoVazio};
  return {numerica(campo.especie) ? marca("zeros") : marca("blanks"), ""};
}

std::vector<Dito> condicoesDe(const Campo& campo) {
  std::vector<Dito> ditas;
  const auto junta = [&ditas](const char* mensagem) { ditas.push_back({mensagem, ""}); };
  if (campo.soNaVersao2) junta(marca("layout 2 only"));
  if (campo.soForaDoCat52) junta(marca("not in CAT52 mode"));
  if (campo.posicao != 0) junta(marca("always at this position"));
  if (campo.desloca) junta(marca("a longer number moves the later fields"));
  if (campo.naoAvanca) junta(marca("what follows begins at the same position"));
  if (campo.naoAvancaVazio) junta(marca("in a placeholder what follows begins at the same position"));
  return ditas;
}

const char* quandoVazio(const Registro& registro, bool cat52) {
  if (!registro.temVazio(cat52)) return marca("none");
  return registro.vazio == Vazio::Sempre ? marca("always") : marca("outside CAT52 mode");
}

const char* notaDe(const Registro& registro, bool cat52) {
  if (registro.camposVazios.size() != registro.campos.size())
    return marca("The placeholder record has no head.");
  return registro.temVazio(cat52) ? registro.outroVazio.nota : registro.outroVazio.sozinho;
}

std::vector<LinhaDaTabela> linhasDe(const Registro& registro, const Disposicao& disposicao,
                                    const AjusteDoLeiaute& ajuste) {
  std::vector<LinhaDaTabela> linhas;
  bool noCabecalho = true;
  for (const CampoLido& lugar : disposicao.campos) {
    const Campo& campo = *lugar.campo;
    noCabecalho = noCabecalho && campo.origem.fixa();
    const int largura = larguraNominal(campo, ajuste.versao);
    linhas.push_back({static_cast<int>(linhas.size()) + 1, campo.rotulo, chaveDe(campo), lugar.posicao + 1,
                      lugar.posicao + largura, largura, nomeDaEspecie(campo),
                      registro.temVazio(ajuste.cat52) ? vazioDe(registro, campo, noCabecalho) : Dito{"-", ""},
                      condicoesDe(campo)});
    if (lugar.largura < largura)
      linhas.back().condicoes.push_back(
          {marca("overwritten from position {1} on"), std::to_string(lugar.posicao + lugar.largura + 1)});
  }
  return linhas;
}

bool iguais(const std::vector<LinhaDaTabela>& a, const std::vector<LinhaDaTabela>& b) {
  const auto partes = [](const LinhaDaTabela& l) {
    return std::tuple(l.rotulo, l.de, l.ate, std::string_view(l.especie), l.vazio, l.condicoes);
  };
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (partes(a[i]) != partes(b[i])) return false;
  return true;
}

}  // namespace

std::vector<std::string> comandosDe(const Registro& registro) {
  std::vector<std::string> comandos;
  for (const char* comando : kNomesDosComandos)
    if (registro.despachado(comando, 2)) comandos.emplace_back(comando);
  return comandos;
}

std::vector<TabelaDoLeiaute> tabelasDe(const Registro& registro, const std::vector<int>& versoes,
                                       bool cat52) {
  std::vector<TabelaDoLeiaute> tabelas;
  for (const int versao : versoes) {
    if (registro.soNaVersao2 && versao != 2) continue;
    Disposicao disposicao;
    dispoe(disposicao, registro, {versao, cat52});
    auto linhas = linhasDe(registro, disposicao, {versao, cat52});
    if (!tabelas.empty() && iguais(tabelas.back().linhas, linhas)) {
      tabelas.back().versoes.push_back(versao);
      continue;
    }
    tabelas.push_back({&registro,
                       {versao},
                       cat52,
                       disposicao.comprimento,
                       quandoVazio(registro, cat52),
                       notaDe(registro, cat52),
                       std::move(linhas)});
  }
  return tabelas;
}

}  // namespace cotepe::programa
