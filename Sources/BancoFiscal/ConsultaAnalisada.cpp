#include "BancoFiscal/ConsultaAnalisada.h"

#include <algorithm>
#include <cctype>
#include <map>

#include "Idioma/Idioma.h"
#include "Leiaute/Texto.h"

namespace cotepe {
namespace {

/// A word outside of quotes, or a comma.
struct Peca {
  std::size_t de, ate;
  int dentro;         // the nesting depth of parentheses
  std::string texto;  // in capitals
};

bool daPalavra(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '.'; }

std::string emMaiusculas(std::string_view texto) {
  std::string maiusculas(texto);
  for (char& c : maiusculas) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return maiusculas;
}

std::size_t fimDaPalavra(std::string_view sql, std::size_t i) {
  while (i < sql.size() && daPalavra(sql[i])) ++i;
  return i;
}

std::vector<Peca> pecas(std::string_view sql) {
  std::vector<Peca> lista;
  int dentro = 0;
  for (std::size_t i = 0; i < sql.size();) {
    std::size_t fim = i + 1;
    if (sql[i] == '\'') {
      fim = std::min(sql.find('\'', i + 1), sql.size() - 1) + 1;
    } else if (daPalavra(sql[i])) {
      fim = fimDaPalavra(sql, i);
      lista.push_back({i, fim, dentro, emMaiusculas(sql.substr(i, fim - i))});
    } else if (sql[i] == ',') {
      lista.push_back({i, fim, dentro, ","});
    }
    if (sql[i] == '(') ++dentro;
    if (sql[i] == ')') --dentro;
    i = fim;
  }
  return lista;
}

std::vector<Peca> pecasDeFora(std::string_view sql) {
  std::vector<Peca> lista = pecas(sql);
  lista.erase(std::remove_if(lista.begin(), lista.end(), [](const Peca& peca) { return peca.dentro != 0; }),
              lista.end());
  return lista;
}

std::string_view semEspacos(std::string_view texto) {
  const std::size_t de = texto.find_first_not_of(" \t");
  return de == std::string_view::npos ? "" : texto.substr(de, texto.find_last_not_of(" \t") + 1 - de);
}

// The first name in an expression that is not a function.
std::string_view nomeDaColuna(std::string_view sql) {
  for (const Peca& peca : pecas(sql)) {
    const bool funcao = peca.ate < sql.size() && sql[peca.ate] == '(';
    if (!funcao && peca.texto != "," && std::isdigit(static_cast<unsigned char>(sql[peca.de])) == 0)
      return sql.substr(peca.de, peca.ate - peca.de);
  }
  return {};
}

Expressao expressao(std::string_view comApelido, const std::vector<TabelaNomeada>& tabelas) {
  Expressao e;
  std::string_view sql = semEspacos(comApelido);
  const std::vector<Peca> partes = pecasDeFora(sql);
  if (!partes.empty() && partes[0].ate < sql.size() && sql[partes[0].ate] == '(') e.funcao = partes[0].texto;
  for (const Peca& peca : partes)
    if (peca.texto == "AS") sql = semEspacos(sql.substr(0, peca.de));
  e.sql = sql;
  e.argumento = nomeDaColuna(sql);
  if (e.argumento.empty()) return e;
  const std::size_t ponto = e.argumento.find('.');
  e.coluna = ponto == std::string::npos ? e.argumento : e.argumento.substr(ponto + 1);
  e.tabela = tabelas.front().nome;
  for (const TabelaNomeada& tabela : tabelas)
    if (ponto != std::string::npos && tabela.apelido == e.argumento.substr(0, ponto)) e.tabela = tabela.nome;
  return e;
}

bool termina(const Peca& peca) { return peca.texto == "GROUP" || peca.texto == "ORDER"; }

// One SELECT: the text from its list on.
SelectAnalisado analisaUm(std::string_view sql) {
  SelectAnalisado select;
  for (const Peca& peca : pecas(sql)) select.nomes.emplace_back(sql.substr(peca.de, peca.ate - peca.de));
  const std::vector<Peca> lista = pecasDeFora(sql);
  const auto from =
      std::find_if(lista.begin(), lista.end(), [](const Peca& peca) { return peca.texto == "FROM"; });
  if (from == lista.end()) return select;
  const auto fim = std::find_if(from, lista.end(), termina);
  select.resto = sql.substr(from->de, fim == lista.end() ? std::string_view::npos : fim->de - from->de);
  for (auto i = from; i + 1 < fim && i->texto != "WHERE"; ++i) {
    if (i->texto != "FROM" && i->texto != "JOIN") continue;
    const std::string nome(sql.substr(i[1].de, i[1].ate - i[1].de));
    const bool comApelido = fim - i > 3 && i[2].texto == "AS";
    select.tabelas.push_back(
        {comApelido ? std::string(sql.substr(i[3].de, i[3].ate - i[3].de)) : nome, nome});
  }
  if (semEspacos(sql.substr(0, from->de)) == "*") return select;
  std::size_t de = 0;
  for (auto i = lista.begin(); i <= from; ++i) {
    if (i != from && i->texto != ",") continue;
    select.lista.push_back(expressao(sql.substr(de, i->de - de), select.tabelas));
    de = i->ate;
  }
  return select;
}

}  // namespace

std::string emAspasSql(const std::string& texto, char aspa) {
  std::string citado(1, aspa);
  for (const char c : texto) citado.append(c == aspa ? 2 : 1, c);
  return citado + aspa;
}

std::string Expressao::emPalavras() const {
  if (constante()) return frase("the constant {1}", {sql});
  std::string lida = tabela + '.' + coluna;
  if (soma()) return frase("the sum of {1}", {lida});
  if (funcao == "MIN") return frase("the smallest {1}", {lida});
  if (funcao == "MAX") return frase("the greatest {1}", {lida});
  if (funcao == "IFNULL") return frase("{1}, 19 blanks where it is NULL", {lida});
  if (funcao != "SUBSTR") return lida;
  return frase("the first {1} characters of {2}", {std::to_string(usados()), lida});
}

int Expressao::usados() const {
  return funcao == "SUBSTR" ? static_cast<int>(leInteiro(sql.substr(sql.rfind(',') + 1).c_str())) - 1 : 0;
}

bool SelectAnalisado::nomeia(std::string_view tabela, std::string_view coluna) const {
  const auto daTabela = [tabela](const TabelaNomeada& nomeada) { return nomeada.nome == tabela; };
  if (std::none_of(tabelas.begin(), tabelas.end(), daTabela)) return false;
  return coluna.empty() || std::any_of(nomes.begin(), nomes.end(), [&](const std::string& nome) {
           const std::size_t ponto = nome.find('.');
           if (ponto == std::string::npos) return nome == coluna;
           return nome.substr(ponto + 1) == coluna &&
                  std::any_of(tabelas.begin(), tabelas.end(), [&](const TabelaNomeada& nomeada) {
                    return nomeada.nome == tabela && nomeada.apelido == nome.substr(0, ponto);
                  });
         });
}

const std::vector<SelectAnalisado>& analisada(const char* sql) {
  static thread_local std::map<const char*, std::vector<SelectAnalisado>> todas{{nullptr, {}}};
  const auto conhecida = todas.find(sql);
  return conhecida != todas.end() ? conhecida->second : todas.emplace(sql, analisa(sql)).first->second;
}

SelectAnalisado SelectAnalisado::comColunas(const std::vector<std::string>& daTabela) const {
  SelectAnalisado outro = *this;
  if (!lista.empty()) return outro;
  for (const std::string& nome : daTabela) {
    const std::string citado = emAspasSql(nome, '"');
    outro.lista.push_back({citado, "", citado, tabelas.front().nome, nome});
  }
  return outro;
}

std::vector<SelectAnalisado> analisa(std::string_view sql) {
  std::vector<SelectAnalisado> selects;
  const std::vector<Peca> lista = pecasDeFora(sql);
  for (std::size_t i = 0; i < lista.size(); ++i) {
    if (lista[i].texto != "SELECT") continue;
    const auto fim = std::find_if(lista.begin() + static_cast<std::ptrdiff_t>(i), lista.end(),
                                  [](const Peca& peca) { return peca.texto == "UNION"; });
    const std::size_t ate = fim == lista.end() ? sql.size() : fim->de;
    selects.push_back(analisaUm(sql.substr(lista[i].ate, ate - lista[i].ate)));
  }
  return selects;
}

}  // namespace cotepe
