// Sample databases of several seeds and sizes, and how an agreement between their rows is checked.
#pragma once

#include <algorithm>
#include <ostream>

#include "Amostra/Amostra.h"
#include "ComEsquema.h"

namespace cotepe::testes {

struct Caso {
  std::string nome;
  int dias, cuponsPorDia;
  std::string inicio;
  std::uint64_t semente;
};

inline std::ostream& operator<<(std::ostream& saida, const Caso& caso) { return saida << caso.nome; }

inline std::vector<Caso> casos() {
  return {{"Padrao", 30, 40, "2024-01-01", 1},       {"MesBissexto", 31, 25, "2024-02-15", 2},
          {"DiasCheios", 3, 1500, "1999-12-30", 77}, {"UmCupom", 1, 1, "2024-02-29", 18446744073709551615U},
          {"Longo", 95, 6, "2023-11-20", 0},         {"OutraSemente", 30, 40, "2024-01-01", 424242}};
}

// Those large enough to show everything at least once.
inline std::vector<Caso> casosDeUmMes() {
  auto todos = casos();
  todos.erase(std::remove_if(todos.begin(), todos.end(),
                             [](const Caso& caso) { return caso.dias * caso.cuponsPorDia < 1000; }),
              todos.end());
  return todos;
}

inline std::string nomeDoCaso(const testing::TestParamInfo<Caso>& caso) { return caso.param.nome; }

// The decimal text of a value times 10^`casas`, read digit by digit; NULL when it has more decimals than
// that.
template <int casas>
void inteiroDoDecimal(sqlite3_context* contexto, int, sqlite3_value** valores) {
  std::string texto = reinterpret_cast<const char*>(sqlite3_value_text(valores[0]));
  const auto ponto = std::min(texto.find('.'), texto.size());
  const std::string decimais = ponto < texto.size() ? texto.substr(ponto + 1) : "";
  const auto digitos = texto.substr(0, ponto) + decimais;
  if (decimais.size() > casas || digitos.empty() ||
      digitos.find_first_not_of("0123456789") != std::string::npos) {
    return;
  }
  sqlite3_result_int64(contexto, std::stoll(digitos + std::string(casas - decimais.size(), '0')));
}

class DaAmostra : public testing::TestWithParam<Caso> {
 protected:
  DaAmostra() : resumo_(cria()), banco_(pasta_.arquivo("amostra.db")) {
    sqlite3_create_function(banco_.aberto(), "centavos", 1, SQLITE_UTF8, nullptr, inteiroDoDecimal<2>,
                            nullptr, nullptr);
    sqlite3_create_function(banco_.aberto(), "milesimos", 1, SQLITE_UTF8, nullptr, inteiroDoDecimal<3>,
                            nullptr, nullptr);
  }

  // `sql` gives a key and the two values that must agree, for at least one row; or for `minimo` rows.
  void concorda(const std::string& regra, const std::string& sql, std::int64_t minimo = 1) {
    const auto tabela = "WITH pares(chave, um, outro) AS (" + sql + ") ";
    EXPECT_EQ(banco_.linhas(tabela + "SELECT * FROM pares WHERE um IS NOT outro LIMIT 3"),
              std::vector<std::string>{})
        << regra;
    EXPECT_GE(banco_.numero(tabela + "SELECT COUNT(*) FROM pares"), minimo) << regra;
  }

  static std::int64_t dias() { return GetParam().dias; }

  Pasta pasta_;
  ResumoDaAmostra resumo_;
  Banco banco_;

 private:
  ResumoDaAmostra cria() {
    OpcoesDaAmostra opcoes;
    opcoes.dias = GetParam().dias;
    opcoes.cuponsPorDia = GetParam().cuponsPorDia;
    opcoes.inicio = GetParam().inicio;
    opcoes.semente = GetParam().semente;
    return criaBancoDeAmostra(pasta_.arquivo("amostra.db"), opcoes);
  }
};

}  // namespace cotepe::testes
