// The application around the generator, as an object.
#pragma once

namespace cotepe {

/// What the application around the generator does for it and knows of the printer.
class Hospedeiro {
 public:
  virtual ~Hospedeiro() = default;

  /// Appends one message line to the application's log.
  virtual void registraLog(const char* mensagem) = 0;

  ///@{
  /// What is known of the printer without its database; empty when unknown. Need not be terminated after
  /// 30 (serial, modelo) or 15 bytes (tipo): callers bound their copies.
  virtual const char* serial() = 0;
  virtual const char* modelo() = 0;
  virtual const char* tipo() = 0;
  ///@}

  /// Writes the current time to `saida` as AAAAMMDD, one separator, HHMMSS; `saida` holds 41 zeroed bytes.
  virtual void dataHoraAtual(char* saida) = 0;

  /// Places `texto` left-aligned and blank-filled into the `largura` bytes at `destino`.
  virtual void preenche(char* texto, char* destino, int largura) = 0;

  /// Called when a query fails whose register logs nothing for it.
  virtual void falhaSemMensagem() {}

  ///@{
  /// Follow a run register by register: its start, and its end with the number of lines that it wrote and
  /// whether each of its queries ended normally. `registro` is its code, such as "E14", with static storage
  /// duration.
  virtual void inicia(const char* /*registro*/) {}
  virtual void conclui(const char* /*registro*/, long /*linhas*/, bool /*completo*/) {}
  ///@}
};

}  // namespace cotepe
