// The sample database: the fiscal memory of a made-up shop, for trials, demonstrations and measurements.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "BancoFiscal/ErroDoBanco.h"

namespace cotepe {

// What to make. The same options give the same bytes on every machine with the same SQLite version.
struct OpcoesDaAmostra {
  int dias = 30;                      // fiscal days, each closed by its Z reduction: 1 to 36500
  int cuponsPorDia = 40;              // fiscal coupons of every day: 1 to 1000000
  std::string inicio = "2024-01-01";  // first fiscal day, YYYY-MM-DD; the last one is before 9999
  std::uint64_t semente = 1;          // everything that looks random comes from it
  std::function<void(int dia, int dias)> progresso;  // called after each day, from 1; may be empty
};

// What was made.
struct ResumoDaAmostra {
  std::string primeiroDia, ultimoDia;  // fiscal days, YYYY-MM-DD
  std::int64_t cupons = 0, itens = 0, pagamentos = 0, outrosDocumentos = 0;
};

// Makes the database file `caminho` with the reference schema and a month, or `dias`, of a shop; every table
// has rows. The file appears under its name only when it is complete and on disk, and never replaces another
// one: it is written under a temporary name in the same folder, which is removed on failure. Throws
// ErroDoBanco when an option is out of range, the file exists or cannot be written; exceptions of `progresso`
// pass through, and nothing is left behind.
ResumoDaAmostra criaBancoDeAmostra(const std::string& caminho, const OpcoesDaAmostra& opcoes = {});

}  // namespace cotepe
