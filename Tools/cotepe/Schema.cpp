// cotepe schema: the SQL of the fiscal database.
#include <unistd.h>

#include "Comandos.h"
#include "Descritor.h"
#include "Esquema.h"

namespace cotepe::programa {

Execucao declaraSchema(CLI::App& /*comando*/) {
  return [] { escreveTudo(STDOUT_FILENO, esquemaSql(), "stdout"); };
}

}  // namespace cotepe::programa
