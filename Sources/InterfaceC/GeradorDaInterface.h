// What is behind a generator of the C interface, and its runs.
#pragma once

#include <memory>

#include "ConexaoDeLeitura.h"
#include "Geracao.h"
#include "HospedeiroDaInterface.h"
#include "Posse.h"

struct cotepe_generator {
  explicit cotepe_generator(sqlite3* aberto) : banco(aberto), geracao(aberto, hospedeiro) {
    hospedeiro.fixaBanco(aberto);
  }
  explicit cotepe_generator(std::unique_ptr<cotepe::ConexaoDeLeitura> aberta)
      : cotepe_generator(aberta->banco()) {
    conexao = std::move(aberta);
  }

  std::unique_ptr<cotepe::ConexaoDeLeitura> conexao;  // null: the connection is the host's
  sqlite3* banco;
  cotepe::HospedeiroDaInterface hospedeiro;
  cotepe::Geracao geracao;
  cotepe::Posse posse;
};

namespace cotepe {

/// The arguments of a run, as given.
struct Pedido {
  const char *relatorio, *primeiro, *ultimo, *comando;
};

///@{
/// A run, in place or whole or not at all, over one state of the database if the connection is our own; the
/// arguments are checked first. Each returns a cotepe_result, with errno and the reason when a file failed,
/// and throws what the host's callbacks throw.
int gera(cotepe_generator& gerador, const Pedido& pedido);
int geraInteiro(cotepe_generator& gerador, const Pedido& pedido, bool substitui);
///@}

/// Makes a generator over the database of that name, which is read once; returns a cotepe_result. Throws
/// std::bad_alloc.
int abre(const char* caminho, int espera, cotepe_generator*& gerador);

/// Why the last `abre` of this thread failed, in the words of SQLite or of the system; empty if it did not.
const char* motivoDaAbertura() noexcept;

}  // namespace cotepe
