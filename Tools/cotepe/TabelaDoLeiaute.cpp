#include "TabelaDoLeiaute.h"

#include <string_view>
#include <tuple>

#include "Idioma/Idioma.h"
#include "Leiaute/Chave.h"
#include "Leiaute/Releitura.h"
#include "Registros/Catalogo.h"

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

// The fields before the first one of a row stand in a placeholder record as in any other, and so do a date
// and an hour that are ready: they are the run's.
Dito vazioDe(const Registro& registro, const Campo& campo, bool noCabecalho) {
  if (noCabecalho && &registro == &kE07) return {marca("left out"), ""};
  if (noCabecalho || campo.especie == Especie::DataPronta || campo.especie == Especie::HoraPronta)
    return {marca("as in a record"), ""};
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

bool temVazio(const Registro& registro, bool cat52) {
  return registro.vazio == Vazio::Sempre || (registro.vazio == Vazio::ForaDoCat52 && !cat52);
}

const char* quandoVazio(const Registro& registro, bool cat52) {
  if (!temVazio(registro, cat52)) return marca("none");
  return registro.vazio == Vazio::Sempre ? marca("always") : marca("outside CAT52 mode");
}

// A field that begins before the one ahead of it ends takes the end of it away.
void anotaSobreposicoes(std::vector<LinhaDaTabela>& linhas) {
  for (std::size_t i = 1; i < linhas.size(); ++i) {
    if (linhas[i].de > linhas[i - 1].ate) continue;
    linhas[i - 1].condicoes.push_back(
        {marca("overwritten from position {1} on"), std::to_string(linhas[i].de)});
  }
}

const char* notaDe(const Registro& registro, bool cat52) {
  if (&registro == &kE07) return marca("The placeholder record has no head.");
  if (&registro == &kE13 && cat52)
    return marca("Without a non-fiscal totalizer there is a placeholder record for those: OPNF and zeros.");
  if (&registro == &kE13)
    return marca("A second placeholder record, OPNF and zeros, stands for the non-fiscal totalizers.");
  return "";
}

std::vector<LinhaDaTabela> linhasDe(const Registro& registro, int versao, bool cat52) {
  std::vector<LinhaDaTabela> linhas;
  int posicao = 1;
  bool noCabecalho = true;
  for (const Campo& campo : registro.campos) {
    noCabecalho = noCabecalho && campo.origem.fixa();
    if (!campo.existe(versao, cat52)) continue;
    if (campo.posicao != 0) posicao = campo.posicao;
    const int largura = larguraNominal(campo, versao);
    linhas.push_back({static_cast<int>(linhas.size()) + 1, campo.rotulo, chaveDe(campo), posicao,
                      posicao + largura - 1, largura, nomeDaEspecie(campo),
                      temVazio(registro, cat52) ? vazioDe(registro, campo, noCabecalho) : Dito{"-", ""},
                      condicoesDe(campo)});
    if (!campo.naoAvanca) posicao += largura;
  }
  anotaSobreposicoes(linhas);
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
  for (const char* comando : {"MF", "MFD", "TDM", "RZ"})
    if (registro.despachado(comando, 2)) comandos.emplace_back(comando);
  return comandos;
}

std::vector<TabelaDoLeiaute> tabelasDe(const Registro& registro, const std::vector<int>& versoes,
                                       bool cat52) {
  std::vector<TabelaDoLeiaute> tabelas;
  for (const int versao : versoes) {
    if (registro.soNaVersao2 && versao != 2) continue;
    auto linhas = linhasDe(registro, versao, cat52);
    if (!tabelas.empty() && iguais(tabelas.back().linhas, linhas)) {
      tabelas.back().versoes.push_back(versao);
      continue;
    }
    tabelas.push_back({&registro,
                       {versao},
                       cat52,
                       comprimento(registro.campos, versao, cat52),
                       quandoVazio(registro, cat52),
                       notaDe(registro, cat52),
                       std::move(linhas)});
  }
  return tabelas;
}

}  // namespace cotepe::programa
