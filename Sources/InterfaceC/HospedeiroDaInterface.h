// The application around the generator, as set up through the C interface.
#pragma once

#include <array>
#include <string>

#include "Hospedeiro.h"
#include "cotepe.h"

struct sqlite3;

namespace cotepe {

/// Thrown out of the run when the clock does not give a valid date/time.
struct RelogioInvalido {};

/// Thrown out of the run when a callback asks to end it.
struct Cancelamento {};

/// Its callbacks may throw anything.
class HospedeiroDaInterface final : public Hospedeiro {
 public:
  /// The connection that the run reads: it provides the words for a failed query.
  void fixaBanco(sqlite3* banco) { banco_ = banco; }

  void fixaIdentidade(const char* serial, const char* modelo, const char* tipo);  // null: unknown
  void fixaLog(cotepe_log_callback log, void* usuario) { log_ = {log, usuario}; }
  void fixaRegistros(cotepe_register_callback aviso, void* usuario) { aviso_ = {aviso, usuario}; }

  /// The last one called counts. On RelogioInvalido nothing is changed.
  void fixaRelogio(cotepe_clock_callback relogio, void* usuario);
  void fixaMomento(const cotepe_time* momento);

  /// Whether each query of each register since `comeca` ended normally.
  void comeca() {
    completa_ = true;
    motivo_.clear();
  }
  bool completa() const { return completa_; }

  /// Why the last operation failed, in the words of SQLite or of the system; empty if none did.
  const std::string& motivo() const { return motivo_; }
  void fixaMotivo(const char* motivo) { motivo_ = motivo; }

  void registraLog(const char* mensagem) override;
  void falhaSemMensagem() override;
  const char* serial() override { return serial_.c_str(); }
  const char* modelo() override { return modelo_.c_str(); }
  const char* tipo() override { return tipo_.c_str(); }
  void dataHoraAtual(char* saida) override;
  void preenche(char* texto, char* destino, int largura) override;
  void conclui(const char* registro, long linhas, bool completo) override;

 private:
  template <class Funcao>
  struct Chamada {
    Funcao funcao = nullptr;
    void* usuario = nullptr;
  };
  using Carimbo = std::array<char, 16>;  // AAAAMMDD, a blank, HHMMSS, a terminator

  static Carimbo carimbo(const cotepe_time& momento);

  sqlite3* banco_ = nullptr;
  std::string serial_, modelo_, tipo_, motivo_;
  Chamada<cotepe_log_callback> log_;
  Chamada<cotepe_register_callback> aviso_;
  Chamada<cotepe_clock_callback> relogio_;
  Carimbo fixo_{};  // empty: the clock is asked
  bool completa_ = true;
};

}  // namespace cotepe
