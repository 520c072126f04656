#include "ExecucaoSqlite.h"

#include <sqlite3.h>

#include <new>
#include <string>

#include "Leiaute/Linha.h"

namespace cotepe {
namespace {

std::string comPeriodo(std::string_view sql, const Ajustes& ajustes) {
  constexpr std::string_view kMarca = "%s";
  std::string texto;
  bool inicial = true;
  for (std::size_t marca; (marca = sql.find(kMarca)) != std::string_view::npos; inicial = !inicial) {
    texto += sql.substr(0, marca);
    texto += inicial ? ajustes.dataHoraInicial : ajustes.dataHoraFinal;
    sql.remove_prefix(marca + kMarca.size());
  }
  return texto += sql;
}

}  // namespace

std::unique_ptr<Leitura> ExecucaoSqlite::consulta(const char* sql) {
  return std::make_unique<Consulta>(banco_, comPeriodo(sql, ajustes()));
}

void ExecucaoSqlite::grava(Linha& linha) {
  const std::string_view texto = linha.comFimDeLinha();
  // A failed write sets the stream's error flag, which the run checks at the end.
  static_cast<void>(std::fwrite(texto.data(), 1, texto.size(), relatorio_));
  ++linhas_;
}

void ExecucaoSqlite::falha(const char* mensagem) {
  completa_ = false;
  if (mensagem != nullptr) return hospedeiro().registraLog(mensagem);
  // Nothing else tells the generator's caller: a report cut short by lack of memory must not pass for
  // complete.
  if (sqlite3_errcode(banco_) == SQLITE_NOMEM) throw std::bad_alloc();
  hospedeiro().falhaSemMensagem();
}

}  // namespace cotepe
