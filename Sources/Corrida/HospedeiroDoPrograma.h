// The application around the generator when it is this program: it records what happened, register by
// register.
#pragma once

#include <string>
#include <vector>

#include "Hospedeiro.h"

class ArquivoDeLog;
struct sqlite3;

namespace cotepe::programa {

class Progresso;

/// What the command line says about the printer; empty where it says nothing. The database takes precedence.
struct Identidade {
  std::string serial, modelo, tipo;
};

/// How a register ended.
struct Etapa {
  const char* registro;  // its code
  long linhas;
  bool completa;
  std::string motivo;  // of the failed query
};

/// Borrows everything that it is given. A signal is thrown as Interrupcao, out of the generator, at the start
/// of the next register or when the query that it stopped is reported.
class HospedeiroDoPrograma final : public Hospedeiro {
 public:
  /// `momento` is what the clock returns throughout the run: AAAAMMDD, a blank, HHMMSS.
  HospedeiroDoPrograma(const Identidade& identidade, const std::string& momento, sqlite3* banco,
                       ArquivoDeLog& log, Progresso& progresso)
      : identidade_(identidade), momento_(momento), banco_(banco), log_(log), progresso_(progresso) {}

  /// Keeps SQLite's words for the failure and logs them after the message.
  void registraLog(const char* mensagem) override;
  const char* serial() override { return identidade_.serial.c_str(); }
  const char* modelo() override { return identidade_.modelo.c_str(); }
  const char* tipo() override { return identidade_.tipo.c_str(); }
  void dataHoraAtual(char* saida) override;
  void preenche(char* texto, char* destino, int largura) override;
  void falhaSemMensagem() override;
  void inicia(const char* registro) override;
  void conclui(const char* registro, long linhas, bool completo) override;

  /// To be called often inside a query: shows progress; false when the query is to be stopped.
  bool continua() noexcept;

  const std::vector<Etapa>& etapas() const { return etapas_; }
  const std::string& motivo() const { return motivo_; }  // of the last failure

 private:
  const Identidade& identidade_;
  const std::string& momento_;
  sqlite3* banco_;
  ArquivoDeLog& log_;
  Progresso& progresso_;
  std::vector<Etapa> etapas_;
  std::string motivo_;
};

}  // namespace cotepe::programa
