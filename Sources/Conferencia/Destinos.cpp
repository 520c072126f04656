#include "Conferencia/Destinos.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <map>

#include "Achados/Citacao.h"
#include "Leiaute/Texto.h"
#include "Registros/Catalogo.h"

namespace cotepe {
namespace {

bool daPalavra(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '.'; }

// The words of an SQL text, and its signs one by one; quoted texts are left out.
std::vector<std::string_view> pecas(std::string_view sql) {
  std::vector<std::string_view> lista;
  for (std::size_t i = 0; i < sql.size();) {
    std::size_t fim = i + 1;
    if (sql[i] == '\'') {
      fim = std::min(sql.find('\'', i + 1), sql.size() - 1) + 1;
    } else if (daPalavra(sql[i])) {
      while (fim < sql.size() && daPalavra(sql[fim])) ++fim;
      lista.push_back(sql.substr(i, fim - i));
    } else if (sql[i] != ' ' && sql[i] != '\t') {
      lista.push_back(sql.substr(i, 1));
    }
    i = fim;
  }
  return lista;
}

using Apelidos = std::map<std::string_view, std::string_view>;

// The tables behind FROM and JOIN by the names that the query gives them; "" is the one behind FROM.
Apelidos apelidos(const std::vector<std::string_view>& sql, std::size_t from) {
  Apelidos nomes;
  for (std::size_t i = from; i + 1 < sql.size(); ++i) {
    if (sql[i] == "WHERE") break;
    if (sql[i] != "FROM" && sql[i] != "JOIN") continue;
    const std::string_view tabela = sql[i + 1];
    if (sql[i] == "FROM") nomes[""] = tabela;
    nomes[i + 3 < sql.size() && sql[i + 2] == "AS" ? sql[i + 3] : tabela] = tabela;
  }
  return nomes;
}

bool comecaNome(std::string_view peca) {
  return std::isalpha(static_cast<unsigned char>(peca[0])) != 0 || peca[0] == '_';
}

// One expression of the list: the first name in it that is no function.
ColunaDaConsulta colunaLida(const std::vector<std::string_view>& sql, std::size_t de, std::size_t ate,
                            const Apelidos& nomes) {
  ColunaDaConsulta lida;
  for (std::size_t i = de; i < ate && lida.tabela.empty(); ++i) {
    if (!comecaNome(sql[i]) || (i + 1 < ate && sql[i + 1] == "(")) continue;
    const std::size_t ponto = sql[i].find('.');
    const bool qualificada = ponto != std::string_view::npos;
    lida.tabela = nomes.at(qualificada ? sql[i].substr(0, ponto) : "");
    lida.coluna = sql[i].substr(qualificada ? ponto + 1 : 0);
  }
  if (sql[de] == "SUBSTR") lida.usados = static_cast<int>(leInteiro(std::string(sql[ate - 2]).c_str())) - 1;
  return lida;
}

std::vector<ColunaDaConsulta> colunasDoSelect(const std::vector<std::string_view>& sql, std::size_t select) {
  std::vector<ColunaDaConsulta> colunas;
  const auto from = static_cast<std::size_t>(
      std::find(sql.begin() + static_cast<std::ptrdiff_t>(select), sql.end(), "FROM") - sql.begin());
  const Apelidos nomes = apelidos(sql, from);
  if (sql[select + 1] == "*") {
    for (int i = 0; i < 4; ++i) colunas.push_back({std::string(nomes.at("")), std::to_string(i)});
    return colunas;
  }
  int dentro = 0;
  std::size_t de = select + 1;
  for (std::size_t i = de; i <= from; ++i) {
    if (sql[i] == "(") ++dentro;
    if (sql[i] == ")") --dentro;
    if (i != from && (dentro != 0 || sql[i] != ",")) continue;
    colunas.push_back(i == de ? ColunaDaConsulta() : colunaLida(sql, de, i, nomes));
    de = i + 1;
  }
  return colunas;
}

// What reaches a field without being a column of the query that the field reads; in any register, where none
// is named.
struct Desvio {
  const char *tabela, *coluna, *registro, *rotulo;
};
constexpr std::array<Desvio, 7> kDesvios = {{
    {"dados_ecf", "num_serie", "E01", "Nº de fabricação"},
    {"dados_ecf", "num_serie", nullptr, "Nº de fabricação do ECF"},
    {"dados_ecf", "modelo", nullptr, "Modelo do ECF"},
    {"dados_usuario", "seq_usuario", nullptr, "Nº de ordem do usuário"},
    {"dados_usuario", "cnpj", "E10", "CNPJ do usuário"},
    {"reducao_z", "valor_gt", "E02", "Totalizador geral (GT)"},
    {"posicao_totalizadores_contadores", "valor_gt", "E02", "Totalizador geral (GT)"},
}};

bool desviado(const Registro& registro, const Campo& campo, std::string_view tabela,
              std::string_view coluna) {
  return std::any_of(kDesvios.begin(), kDesvios.end(), [&](const Desvio& desvio) {
    return tabela == desvio.tabela && coluna == desvio.coluna &&
           (desvio.registro == nullptr || std::string_view(registro.codigo) == desvio.registro) &&
           std::string_view(campo.rotulo) == desvio.rotulo;
  });
}

// Whether a SELECT of the field's query, or another query with the same list, gives it the column.
const ColunaDaConsulta* lidaPelo(const std::vector<std::vector<ColunaDaConsulta>>& selects,
                                 const Campo& campo, std::string_view tabela, std::string_view coluna) {
  if (campo.origem.coluna < 0) return nullptr;
  const auto posicao = static_cast<std::uint8_t>(campo.origem.coluna);
  for (const auto& colunas : selects) {
    if (posicao >= colunas.size()) continue;
    if (colunas[posicao].tabela == tabela && colunas[posicao].coluna == coluna) return &colunas[posicao];
  }
  return nullptr;
}

// A query taken apart: its words, and the columns of its SELECTs. No query stands behind a null text.
struct ConsultaDesmontada {
  std::vector<std::string_view> palavras;
  std::vector<std::vector<ColunaDaConsulta>> selects;
};

// The queries of the registers are always the same: each is taken apart once.
const ConsultaDesmontada& desmontada(const char* sql) {
  static const auto kTodas = [] {
    std::map<const char*, ConsultaDesmontada> todas{{nullptr, {}}};
    for (const Registro* registro : kCatalogo)
      for (const ConsultaDoRegistro& consulta : registro->consultas)
        if (consulta.sql != nullptr)
          todas[consulta.sql] = {pecas(consulta.sql), colunasDaConsulta(consulta.sql)};
    return todas;
  }();
  return kTodas.at(sql);
}

void junta(const Registro& registro, std::string_view tabela, std::string_view coluna, const Alcance& alcance,
           std::vector<Destino>& destinos) {
  for (std::size_t i = 0; i < registro.campos.size(); ++i) {
    const Campo& campo = registro.campos[i];
    if (!alcance.existe(campo)) continue;
    const ConsultaDoRegistro& consulta = registro.consultas[static_cast<std::uint8_t>(campo.origem.consulta)];
    const auto& daConsulta = desmontada(consulta.sql).selects;
    const ColunaDaConsulta* lida = lidaPelo(daConsulta, campo, tabela, coluna);
    if (lida == nullptr && !desviado(registro, campo, tabela, coluna)) continue;
    Destino destino{&registro, &campo, static_cast<int>(i) + 1, lida == nullptr ? 0 : lida->usados, {}};
    if (campo.colunaDasCasas >= 0)
      destino.casas = daConsulta[0][static_cast<std::size_t>(campo.colunaDasCasas)].coluna;
    destinos.push_back(std::move(destino));
  }
}

// Whether one SELECT (the words from `de` to before `ate`) names the column of the table.
bool nomeia(const std::vector<std::string_view>& sql, std::size_t de, std::size_t ate,
            std::string_view tabela, std::string_view coluna) {
  const auto inicio = sql.begin() + static_cast<std::ptrdiff_t>(de);
  const auto fim = sql.begin() + static_cast<std::ptrdiff_t>(ate);
  const std::vector<std::string_view> select(inicio, fim);
  const Apelidos nomes = apelidos(select, 0);
  const auto daTabela = [&](const auto& nome) { return nome.second == tabela; };
  if (std::none_of(nomes.begin(), nomes.end(), daTabela)) return false;
  if (coluna.empty()) return true;
  return std::any_of(select.begin(), select.end(), [&](std::string_view palavra) {
    const std::size_t ponto = palavra.find('.');
    if (ponto == std::string_view::npos) return palavra == coluna;
    const auto nome = nomes.find(palavra.substr(0, ponto));
    return palavra.substr(ponto + 1) == coluna && nome != nomes.end() && nome->second == tabela;
  });
}

bool le(const ConsultaDoRegistro& consulta, std::string_view tabela, std::string_view coluna) {
  const std::vector<std::string_view>& sql = desmontada(consulta.sql).palavras;
  std::size_t de = 0;
  for (std::size_t i = 0; i <= sql.size(); ++i) {
    if (i != sql.size() && sql[i] != "UNION") continue;
    if (nomeia(sql, de, i, tabela, coluna)) return true;
    de = i;
  }
  return false;
}

}  // namespace

std::vector<std::vector<ColunaDaConsulta>> colunasDaConsulta(std::string_view sql) {
  const std::vector<std::string_view> lista = pecas(sql);
  std::vector<std::vector<ColunaDaConsulta>> selects;
  for (std::size_t i = 0; i < lista.size(); ++i) {
    const bool doConjunto = i == 0 || lista[i - 1] == "UNION" || lista[i - 1] == "ALL";
    if (lista[i] == "SELECT" && doConjunto) selects.push_back(colunasDoSelect(lista, i));
  }
  return selects;
}

bool Alcance::escreve(const Registro& registro) const {
  constexpr std::array<const char*, 4> kComandos = {"MF", "MFD", "TDM", "RZ"};
  return std::any_of(kComandos.begin(), kComandos.end(), [&](const char* nome) {
    return (comando.empty() || comando == nome) && registro.despachado(nome, leiaute == 0 ? 2 : leiaute);
  });
}

bool Alcance::existe(const Campo& campo) const {
  if (leiaute != 0) return campo.existe(leiaute, cat52);
  return campo.existe(1, cat52) || campo.existe(2, cat52);
}

std::vector<Destino> destinosDe(std::string_view tabela, std::string_view coluna, const Alcance& alcance) {
  std::vector<Destino> destinos;
  for (const Registro* registro : kCatalogo)
    if (alcance.escreve(*registro)) junta(*registro, tabela, coluna, alcance, destinos);
  return destinos;
}

std::string registrosQueLeem(std::string_view tabela, std::string_view coluna, const Alcance& alcance) {
  std::vector<std::string> codigos;
  for (const Registro* registro : kCatalogo) {
    const auto daConsulta = [&](const ConsultaDoRegistro& consulta) { return le(consulta, tabela, coluna); };
    if (alcance.escreve(*registro) &&
        std::any_of(std::begin(registro->consultas), std::end(registro->consultas), daConsulta))
      codigos.emplace_back(registro->codigo);
  }
  return enumera(codigos);
}

}  // namespace cotepe
