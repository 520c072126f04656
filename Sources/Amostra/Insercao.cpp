#include "Amostra/Insercao.h"

#include <algorithm>
#include <cassert>

#include "BancoFiscal/ErroDoBanco.h"
#include "Idioma/Idioma.h"

namespace cotepe {

Insercao::Insercao(sqlite3* banco, std::string_view alvo)
    : banco_(banco), tabela_(alvo.substr(0, alvo.find('('))) {
  const auto colunas = std::count(alvo.begin(), alvo.end(), ',') + 1;
  auto sql = "INSERT INTO " + std::string(alvo) + " VALUES (?";
  for (auto coluna = colunas; coluna > 1; --coluna) sql += ",?";
  sql += ")";
  exige(sqlite3_prepare_v2(banco_, sql.c_str(), -1, &comando_, nullptr) == SQLITE_OK);
}

void Insercao::vincula(int coluna, std::int64_t valor) {
  exige(sqlite3_bind_int64(comando_, coluna, valor) == SQLITE_OK);
}

void Insercao::vincula(int coluna, const Decimal& valor) {
  if (valor.unidades % valor.divisor == 0) return vincula(coluna, valor.unidades / valor.divisor);
  const double quociente = static_cast<double>(valor.unidades) / static_cast<double>(valor.divisor);
  exige(sqlite3_bind_double(comando_, coluna, quociente) == SQLITE_OK);
}

void Insercao::vincula(int coluna, std::string_view texto) {
  const char* dados = texto.empty() ? "" : texto.data();
  exige(sqlite3_bind_text(comando_, coluna, dados, static_cast<int>(texto.size()), SQLITE_STATIC) ==
        SQLITE_OK);
}

void Insercao::vincula(int coluna, std::nullptr_t) {
  exige(sqlite3_bind_null(comando_, coluna) == SQLITE_OK);
}

void Insercao::executa(int colunas) {
  assert(sqlite3_bind_parameter_count(comando_) == colunas);
  static_cast<void>(colunas);
  exige(sqlite3_step(comando_) == SQLITE_DONE);
  sqlite3_reset(comando_);
}

void Insercao::exige(bool condicao) {
  if (condicao) return;
  throw ErroDoBanco({traduz("cannot write the database"), frase("table {1}", {tabela_}),
                     sqlite3_errmsg(banco_), traduz("a row that is stored"),
                     traduz("free some space or choose another place")});
}

}  // namespace cotepe
