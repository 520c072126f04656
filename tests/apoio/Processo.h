// The program as its users run it: a process with arguments, files, limits and signals.
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

#include "Rastreio.h"

/// How a process ended: its exit status, or -1 and the signal that killed it.
struct Fim {
  int situacao = -1;
  int sinal = 0;
  std::string saida, erros;  // stdout and stderr
};

/// Set up by chaining, started once, waited for once; a process that does not end within two minutes is
/// killed and fails the test.
class Processo {
 public:
  explicit Processo(std::vector<std::string> argumentos);
  ~Processo();
  Processo(const Processo&) = delete;
  Processo& operator=(const Processo&) = delete;

  Processo& naPasta(const std::string& pasta);
  Processo& comAmbiente(const std::string& nome, const std::string& valor);
  Processo& comLimiteDeArquivo(unsigned long bytes);  // RLIMIT_FSIZE
  Processo& comSaidaEm(const std::string& arquivo);   // stdout there, at its end, instead of into a pipe
  Processo& semSaida();                               // stdout closed
  Processo& semLeitorDaSaida();                       // stdout is a pipe whose reading end is closed
  Processo& comErrosNoTerminal();                     // stderr is a terminal
  Processo& ignorando(int sinal);                     // as nohup does
  Processo& comFalha(const std::string& funcao, int vez, int erro);  // the call with that number fails so
  Processo& comRegra(Regra regra);  // over each of its system calls; it has ended when `inicia` returns
  Processo& semPrivilegios();       // not as root, where the tests run as root

  Processo& inicia();
  void envia(int sinal) const;
  void espereParado();                // until a SIGSTOP has taken effect
  bool termineEm(int milissegundos);  // whether it ended by then; reads nothing of its output
  Fim espera();

 private:
  [[noreturn]] void torna();
  static void recebeTodosOsSinais();
  void recolhe(std::optional<int> estado);
  void abreTubos();
  void le(int tubo, std::string& texto);

  std::vector<std::string> argumentos_, ambiente_;
  std::string pasta_, arquivoDaSaida_;
  std::optional<unsigned long> limite_;
  Regra regra_;
  int ignorado_ = 0;
  bool semSaida_ = false, semLeitor_ = false, terminal_ = false, semPrivilegios_ = false, recolhido_ = false;
  int saida_[2] = {-1, -1}, erros_[2] = {-1, -1};
  int estado_ = 0;
  pid_t filho_ = -1;
};

/// Runs the program to its end.
Fim roda(const std::vector<std::string>& argumentos, const std::string& pasta = "");
