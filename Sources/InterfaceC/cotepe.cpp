#include "cotepe.h"

#include <new>

#include "GeradorDaInterface.h"

// A run's results are passed on as they are.
static_assert(int{COTEPE_DONE} == cotepe::kGerado);
static_assert(int{COTEPE_BAD_ARGUMENT} == cotepe::kArgumentoInvalido);
static_assert(int{COTEPE_CANNOT_OPEN} == cotepe::kRelatorioNaoAberto);
static_assert(int{COTEPE_CANNOT_WRITE} == cotepe::kEscritaFalhou);
static_assert(int{COTEPE_NO_IDENTITY} == cotepe::kIdentidadeFalhou);

namespace {

// The result of `funcao` with exclusive use of the generator, or the result that corresponds to what it
// throws.
template <class Funcao>
int comGerador(cotepe_generator* gerador, Funcao funcao) noexcept {
  if (gerador == nullptr) return COTEPE_BAD_ARGUMENT;
  if (!gerador->posse.toma()) return COTEPE_BUSY;
  int resultado = COTEPE_DONE;
  try {
    resultado = funcao(*gerador);
  } catch (const std::bad_alloc&) {
    resultado = COTEPE_NO_MEMORY;
  } catch (const cotepe::RelogioInvalido&) {
    resultado = COTEPE_BAD_TIME;
  } catch (const cotepe::Cancelamento&) {
    resultado = COTEPE_CANCELLED;
  } catch (...) {
    resultado = COTEPE_CALLBACK_FAILED;
  }
  gerador->posse.solta();
  return resultado;
}

// The same for functions without a result of their own.
template <class Funcao>
int ajusta(cotepe_generator* gerador, Funcao funcao) noexcept {
  return comGerador(gerador, [&](cotepe_generator& g) {
    funcao(g);
    return COTEPE_DONE;
  });
}

}  // namespace

int cotepe_open(const char* database, int busy_timeout, cotepe_generator** generator) noexcept {
  if (generator == nullptr) return COTEPE_BAD_ARGUMENT;
  *generator = nullptr;
  if (database == nullptr || *database == '\0' || busy_timeout < 0) return COTEPE_BAD_ARGUMENT;
  try {
    return cotepe::abre(database, busy_timeout, *generator);
  } catch (...) {
    return COTEPE_NO_MEMORY;
  }
}

int cotepe_create(sqlite3* database, cotepe_generator** generator) noexcept {
  if (generator == nullptr) return COTEPE_BAD_ARGUMENT;
  *generator = nullptr;
  if (database == nullptr) return COTEPE_BAD_ARGUMENT;
  *generator = new (std::nothrow) cotepe_generator(database);
  return *generator != nullptr ? COTEPE_DONE : COTEPE_NO_MEMORY;
}

int cotepe_destroy(cotepe_generator* generator) noexcept {
  if (generator != nullptr && !generator->posse.toma() && !generator->posse.abandonada()) return COTEPE_BUSY;
  delete generator;
  return COTEPE_DONE;
}

int cotepe_set_layout(cotepe_generator* generator, int version) noexcept {
  return ajusta(generator, [&](cotepe_generator& g) { g.geracao.setVersaoAtoCotepe(version); });
}

int cotepe_set_cat52(cotepe_generator* generator, int on) noexcept {
  return ajusta(generator, [&](cotepe_generator& g) { g.geracao.setCAT52(on != 0); });
}

int cotepe_set_identity(cotepe_generator* generator, const char* serial, const char* model,
                        const char* type) noexcept {
  return ajusta(generator, [&](cotepe_generator& g) { g.hospedeiro.fixaIdentidade(serial, model, type); });
}

int cotepe_set_log(cotepe_generator* generator, cotepe_log_callback callback, void* user) noexcept {
  return ajusta(generator, [&](cotepe_generator& g) { g.hospedeiro.fixaLog(callback, user); });
}

int cotepe_set_register_callback(cotepe_generator* generator, cotepe_register_callback callback,
                                 void* user) noexcept {
  return ajusta(generator, [&](cotepe_generator& g) { g.hospedeiro.fixaRegistros(callback, user); });
}

int cotepe_set_clock(cotepe_generator* generator, cotepe_clock_callback callback, void* user) noexcept {
  return ajusta(generator, [&](cotepe_generator& g) { g.hospedeiro.fixaRelogio(callback, user); });
}

int cotepe_set_time(cotepe_generator* generator, const cotepe_time* time) noexcept {
  return ajusta(generator, [&](cotepe_generator& g) { g.hospedeiro.fixaMomento(time); });
}

int cotepe_generate(cotepe_generator* generator, const char* report, const char* first_day,
                    const char* last_day, const char* command) noexcept {
  const cotepe::Pedido pedido{report, first_day, last_day, command};
  return comGerador(generator, [&](cotepe_generator& g) { return cotepe::gera(g, pedido); });
}

int cotepe_generate_whole(cotepe_generator* generator, const char* report, const char* first_day,
                          const char* last_day, const char* command, int replace) noexcept {
  const cotepe::Pedido pedido{report, first_day, last_day, command};
  return comGerador(generator,
                    [&](cotepe_generator& g) { return cotepe::geraInteiro(g, pedido, replace != 0); });
}

const char* cotepe_reason(const cotepe_generator* generator) noexcept {
  return generator != nullptr ? generator->hospedeiro.motivo().c_str() : cotepe::motivoDaAbertura();
}

const char* cotepe_result_text(int result) noexcept {
  switch (result) {
    case COTEPE_DONE:
      return "done";
    case COTEPE_INCOMPLETE:
      return "a query failed: the report may lack lines";
    case COTEPE_BAD_ARGUMENT:
      return "an argument is null, or the days or the command are not valid";
    case COTEPE_CANNOT_OPEN:
      return "the report cannot be opened";
    case COTEPE_CANNOT_WRITE:
      return "the report cannot be written";
    case COTEPE_NO_IDENTITY:
      return "the printer's identity cannot be read";
    case COTEPE_NO_MEMORY:
      return "out of memory";
    case COTEPE_BUSY:
      return "the generator is running";
    case COTEPE_BAD_TIME:
      return "the clock gave no time of the calendar";
    case COTEPE_CALLBACK_FAILED:
      return "an exception left a callback";
    case COTEPE_CANCELLED:
      return "a callback cancelled the run";
    case COTEPE_CANNOT_READ:
      return "the database cannot be opened or read";
    case COTEPE_LOCKED:
      return "the database is locked";
    case COTEPE_NOT_A_DATABASE:
      return "the file is no SQLite database, or is damaged";
    default:
      return "unknown result";
  }
}

const char* cotepe_version() noexcept { return COTEPE_VERSAO; }
