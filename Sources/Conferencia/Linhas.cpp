// One pass over a table: every value is checked against its form, then what only all rows together show.
#include <algorithm>
#include <optional>

#include "Achados/Citacao.h"
#include "BancoFiscal/ConsultaAnalisada.h"
#include "Conferencia/Partes.h"
#include "Idioma/Idioma.h"
#include "Leiaute/Texto.h"

namespace cotepe {

const Regra conferencia::kQuantasLinhas{
    "row-count", Severidade::Erro,
    marca("There is one printer, one user, one position, and a version of the software."),
    marca("leave the row that is valid now")};
const Regra conferencia::kOrdemDeTexto{
    "text-order", Severidade::Erro,
    marca("A counter that rows are sorted by is stored so that 9 comes before 11."),
    marca("store it as an integer")};
const Regra conferencia::kMaximoDeTexto{
    "text-maximum", Severidade::Erro,
    marca("What a maximum is taken of is stored so that 9 is less than 11."), marca("store it as a number")};

namespace {

constexpr char kPrimeiraHora[] = " 00:00:00", kUltimaHora[] = " 23:59:59";

// Texts among the numbers of a column, and whether all texts have the same count of digits before the point.
struct OrdemDaColuna {
  const UsoDaColuna* uso = nullptr;
  long textos = 0, outros = 0;
  std::size_t menor = 0, maior = 0;
  std::string curto, longo;

  void ve(int tipo, std::string_view texto) {
    if (tipo == SQLITE_NULL) return;
    if (tipo != SQLITE_TEXT && tipo != SQLITE_BLOB) {
      ++outros;
      return;
    }
    const std::size_t digitos = std::min(texto.find('.'), texto.size());
    if (textos == 0 || digitos < menor) curto = citado(texto), menor = digitos;
    if (textos == 0 || digitos > maior) longo = citado(texto), maior = digitos;
    ++textos;
  }
};

struct ColunaLigada {
  ColunaVerificada verificada;
  OrdemDaColuna ordem;
  int casas = -1;  // the column of the query that declares its decimal places
};

const UsoDaColuna* usoDe(const std::string& tabela, const std::string& coluna) {
  const auto* const uso = std::find_if(kUsos.begin(), kUsos.end(), [&](const UsoDaColuna& u) {
    return tabela == u.tabela && coluna == u.coluna;
  });
  return uso == kUsos.end() ? nullptr : &*uso;
}

bool dizOPeriodo(const std::string& tabela, const std::string& coluna) {
  return (tabela == "reducao_z" && coluna == "data_movimento") ||
         (tabela == "fita_detalhe" && coluna == "data_hora_emissao");
}

std::string textosEmDesordem(const OrdemDaColuna& ordem) {
  const bool maximo = ordem.uso->uso == Uso::Maximo;
  if (ordem.outros != 0)
    return frase(maximo ? marca("the text {1} among numbers, the greatest of which is taken letter by letter")
                        : marca("the text {1} among numbers, which are sorted letter by letter"),
                 {ordem.longo});
  return frase(maximo ? marca("the texts {1} and {2}, the greatest of which is taken letter by letter")
                      : marca("the texts {1} and {2}, which are sorted letter by letter"),
               {ordem.curto, ordem.longo});
}

class Passada {
 public:
  Passada(const Contexto& contexto, const FormaDaTabela& forma) : contexto_(contexto), forma_(forma) {
    meta_.alcance = contexto.opcoes().alcance;
    meta_.primeiroDia = contexto.opcoes().de;
    if (forma.porPosicao)
      ligaPorPosicao();
    else
      ligaPorNome();
  }

  void executa();

 private:
  void ligaPorNome();
  void ligaPorPosicao();
  void liga(const std::string& nome, const std::string& comoLida, const FormaDaColuna& forma);
  std::string sql() const;
  int indice(const std::string& nome) const;
  std::string chave(const Pergunta& pergunta) const;
  void confereLinha(const Pergunta& pergunta);
  void relata(const ColunaVerificada& coluna, const Problema& problema, const Pergunta& pergunta) const;
  void confereQuantas(long linhas) const;
  void confereOrdem(const ColunaLigada& coluna) const;

  const Contexto& contexto_;
  const FormaDaTabela& forma_;
  Meta meta_;
  std::vector<ColunaLigada> colunas_;
  std::vector<Problema> problemas_;
};

void Passada::liga(const std::string& nome, const std::string& comoLida, const FormaDaColuna& forma) {
  const std::string tabela = forma_.nome;
  ColunaLigada coluna;
  coluna.verificada = {nome,
                       forma,
                       destinosDe(tabela, comoLida, meta_.alcance),
                       contexto_.leitores(tabela, forma_.porPosicao ? "" : comoLida),
                       dizOPeriodo(tabela, nome),
                       false};
  // What is printed only in other reports does not matter here.
  if (coluna.verificada.destinos.empty() && !destinosDe(tabela, comoLida, Alcance()).empty())
    coluna.verificada.forma.forma = FormaDoValor::NaoImpressa;
  coluna.ordem.uso = usoDe(tabela, nome);
  coluna.verificada.maximo = coluna.ordem.uso != nullptr && coluna.ordem.uso->uso == Uso::Maximo;
  colunas_.push_back(std::move(coluna));
}

void Passada::ligaPorNome() {
  for (const FormaDaColuna& coluna : forma_.colunas)
    if (coluna.nome != nullptr && contexto_.tem(forma_.nome, coluna.nome) &&
        !contexto_.leitores(forma_.nome, coluna.nome).empty())
      liga(coluna.nome, coluna.nome, coluna);
  for (ColunaLigada& coluna : colunas_) {
    const auto& destinos = coluna.verificada.destinos;
    if (!destinos.empty() && !destinos[0].casas.empty()) coluna.casas = indice(destinos[0].casas);
  }
}

void Passada::ligaPorPosicao() {
  const std::vector<std::string> nomes = contexto_.colunas(forma_.nome);
  for (std::size_t i = 0; i < nomes.size() && forma_.colunas[i].nome != nullptr; ++i)
    liga(nomes[i], std::to_string(i), forma_.colunas[i]);
}

int Passada::indice(const std::string& nome) const {
  for (std::size_t i = 0; i < colunas_.size(); ++i)
    if (colunas_[i].verificada.nome == nome) return static_cast<int>(i);
  return -1;
}

std::string Passada::sql() const {
  std::string texto = "SELECT ";
  for (std::size_t i = 0; i < colunas_.size(); ++i)
    texto += (i == 0 ? "" : ", ") + emAspasSql(colunas_[i].verificada.nome, '"');
  texto += std::string(" FROM ") + forma_.nome;
  if (forma_.doPeriodo != nullptr && !contexto_.opcoes().de.empty())
    texto += std::string(" WHERE ") + forma_.doPeriodo;
  return texto;
}

std::string Passada::chave(const Pergunta& pergunta) const {
  std::string texto;
  for (const std::string& nome : separa(forma_.chave)) {
    const int i = forma_.porPosicao ? 0 : indice(nome);
    if (i < 0) continue;
    texto += (texto.empty() ? "" : ",") + colunas_[static_cast<std::size_t>(i)].verificada.nome + '=' +
             (pergunta.tipo(i) == SQLITE_NULL ? "NULL" : legivel(pergunta.texto(i)));
  }
  return texto;
}

void Passada::executa() {
  if (colunas_.empty()) return;
  Pergunta pergunta(contexto_.banco(), sql());
  pergunta.vincula(1, contexto_.opcoes().de + kPrimeiraHora);
  pergunta.vincula(2, contexto_.opcoes().ate + kUltimaHora);
  long linhas = 0;
  for (; pergunta.avanca(); ++linhas) confereLinha(pergunta);
  confereQuantas(linhas);
  for (const ColunaLigada& coluna : colunas_) confereOrdem(coluna);
}

void Passada::confereLinha(const Pergunta& pergunta) {
  const int fiscal = indice("id_fiscal");
  const char* foraDe = fiscal < 0 ? nullptr : pergunta.texto(fiscal) == "S" ? "E17" : "E13";
  for (std::size_t i = 0; i < colunas_.size(); ++i) {
    ColunaLigada& coluna = colunas_[i];
    const int numero = static_cast<int>(i), tipo = pergunta.tipo(numero);
    Celula celula;
    celula.nulo = tipo == SQLITE_NULL;
    celula.real = tipo == SQLITE_FLOAT;
    celula.texto = pergunta.texto(numero);
    celula.foraDe = foraDe;
    if (coluna.casas >= 0 && leInteiro(std::string(pergunta.texto(coluna.casas)).c_str()) == 3)
      celula.casas = 3;
    if (coluna.ordem.uso != nullptr) coluna.ordem.ve(tipo, celula.texto);
    problemas_.clear();
    confereCelula(coluna.verificada, celula, meta_, problemas_);
    for (const Problema& problema : problemas_) relata(coluna.verificada, problema, pergunta);
  }
}

void Passada::relata(const ColunaVerificada& coluna, const Problema& problema,
                     const Pergunta& pergunta) const {
  if (!contexto_.ligada(*problema.regra)) return;
  std::string encontrado = problema.encontrado;
  if (!problema.outros.empty()) encontrado = frase("{1}; in {2} too", {encontrado, enumera(problema.outros)});
  contexto_.relata(*problema.regra, {forma_.nome, chave(pergunta), coluna.nome}, coluna.leitores,
                   problema.destino, encontrado, problema.esperado, problema.conserto);
}

void Passada::confereQuantas(long linhas) const {
  const bool poucas = linhas < forma_.minimo, muitas = forma_.maximo != 0 && linhas > forma_.maximo;
  if (!poucas && !muitas) return;
  contexto_.relata(conferencia::kQuantasLinhas, {forma_.nome, "", ""}, contexto_.leitores(forma_.nome, ""),
                   nullptr,
                   poucas ? fraseDe("{n} row, without which fields are left out",
                                    "{n} rows, without which fields are left out", linhas)
                          : fraseDe("{n} row, each of which adds fields or records",
                                    "{n} rows, each of which adds fields or records", linhas),
                   traduz(forma_.maximo == 0   ? marca("at least one")
                          : forma_.minimo == 0 ? marca("one at most")
                                               : marca("one")),
                   poucas ? marca("store it") : nullptr);
}

void Passada::confereOrdem(const ColunaLigada& coluna) const {
  const OrdemDaColuna& ordem = coluna.ordem;
  if (ordem.uso == nullptr || ordem.textos == 0 || (ordem.outros == 0 && ordem.menor == ordem.maior)) return;
  const bool maximo = ordem.uso->uso == Uso::Maximo;
  contexto_.relata(maximo ? conferencia::kMaximoDeTexto : conferencia::kOrdemDeTexto,
                   {forma_.nome, "", coluna.verificada.nome}, coluna.verificada.leitores, nullptr,
                   textosEmDesordem(ordem), traduz("numbers, or texts of as many digits"));
}

}  // namespace

void confereLinhas(const Contexto& contexto, const FormaDaTabela& forma) {
  Passada(contexto, forma).executa();
}

}  // namespace cotepe
