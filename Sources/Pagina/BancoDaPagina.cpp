#include "Pagina/BancoDaPagina.h"

#include <sqlite3.h>

#include <memory>

#include "Pagina/Html.h"

namespace cotepe::pagina {
namespace {

struct FechaConsulta {
  void operator()(sqlite3_stmt* comando) const { sqlite3_finalize(comando); }
};
using ConsultaDaPagina = std::unique_ptr<sqlite3_stmt, FechaConsulta>;

// Amounts are decimal numbers, rounded to cents.
constexpr char kHoras[] =
    "SELECT CAST(substr(cupom.data_hora_emissao, 12, 2) AS INTEGER), count(*),"
    " sum(CAST(round(cupom.valor_total * 100) AS INTEGER))"
    " FROM cupom_fiscal AS cupom JOIN reducao_z AS reducao USING (cont_crz)"
    " WHERE reducao.data_movimento BETWEEN ?1 AND ?2 AND cupom.id_cancelado = 'N'"
    " AND length(cupom.data_hora_emissao) >= 13 GROUP BY 1";
constexpr char kTotaisGerais[] =
    "SELECT replace(substr(data_movimento, 1, 10), '-', ''), max(CAST(round(valor_gt * 100) AS INTEGER))"
    " FROM reducao_z WHERE data_movimento BETWEEN ?1 AND ?2 GROUP BY 1";

// Null when the database has no such tables.
ConsultaDaPagina prepara(sqlite3* banco, const char* sql, const std::string& de, const std::string& ate) {
  sqlite3_stmt* comando = nullptr;
  if (sqlite3_prepare_v2(banco, sql, -1, &comando, nullptr) != SQLITE_OK) return nullptr;
  sqlite3_bind_text(comando, 1, de.c_str(), -1, SQLITE_TRANSIENT);
  sqlite3_bind_text(comando, 2, ate.c_str(), -1, SQLITE_TRANSIENT);
  return ConsultaDaPagina(comando);
}

}  // namespace

void leDoBanco(sqlite3* banco, const std::string& de, const std::string& ate, DoBanco& lido) {
  const std::string primeiro = dataIso(de) + " 00:00:00", ultimo = dataIso(ate) + " 23:59:59";
  const ConsultaDaPagina horas = prepara(banco, kHoras, primeiro, ultimo);
  while (horas && sqlite3_step(horas.get()) == SQLITE_ROW)
    lido.horas[sqlite3_column_int(horas.get(), 0)] = {static_cast<long>(sqlite3_column_int64(horas.get(), 1)),
                                                      sqlite3_column_int64(horas.get(), 2)};
  const ConsultaDaPagina totais = prepara(banco, kTotaisGerais, primeiro, ultimo);
  while (totais && sqlite3_step(totais.get()) == SQLITE_ROW) {
    const auto* dia = reinterpret_cast<const char*>(sqlite3_column_text(totais.get(), 0));
    if (dia != nullptr) lido.totaisGerais[dia] = sqlite3_column_int64(totais.get(), 1);
  }
}

}  // namespace cotepe::pagina
