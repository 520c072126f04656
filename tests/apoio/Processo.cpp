#include "Processo.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <thread>
#include <utility>

namespace {

using Relogio = std::chrono::steady_clock;
constexpr auto kPrazo = std::chrono::minutes(2);
constexpr uid_t kNinguem = 65534;

std::vector<char*> ponteiros(std::vector<std::string>& textos) {
  std::vector<char*> lista;
  lista.reserve(textos.size() + 1);
  for (std::string& texto : textos) lista.push_back(texto.data());
  lista.push_back(nullptr);
  return lista;
}

// Closes what is open.
void fecha(int& descritor) {
  if (descritor >= 0) close(std::exchange(descritor, -1));
}

// The program where everybody can run it, however deep in somebody's home it was built.
std::string copiaParaTodos(const std::string& programa) {
  namespace fs = std::filesystem;
  static const std::string copia = [&] {
    std::string nome = testing::TempDir() + "cotepe-XXXXXX";
    if (mkdtemp(nome.data()) == nullptr) ADD_FAILURE() << "no temporary folder";
    fs::permissions(nome, fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
    fs::copy_file(programa, nome + "/cotepe");
    return nome;
  }();
  struct Limpeza {
    ~Limpeza() { std::filesystem::remove_all(copia); }
  };
  static const Limpeza limpeza;
  return copia + "/cotepe";
}

}  // namespace

Processo::Processo(std::vector<std::string> argumentos) : argumentos_(std::move(argumentos)) {
  argumentos_.insert(argumentos_.begin(), COTEPE_PROGRAMA);
  for (char** variavel = environ; *variavel != nullptr; ++variavel) ambiente_.emplace_back(*variavel);
  comAmbiente("LC_ALL", "C");  // messages in English, whoever runs the tests
}

Processo::~Processo() {
  if (filho_ > 0 && !recolhido_) {
    kill(filho_, SIGKILL);
    waitpid(filho_, nullptr, 0);
  }
  for (int* descritor : {&saida_[0], &saida_[1], &erros_[0], &erros_[1]}) fecha(*descritor);
}

Processo& Processo::naPasta(const std::string& pasta) { return pasta_ = pasta, *this; }
Processo& Processo::comLimiteDeArquivo(unsigned long bytes) { return limite_ = bytes, *this; }
Processo& Processo::comSaidaEm(const std::string& arquivo) { return arquivoDaSaida_ = arquivo, *this; }
Processo& Processo::semSaida() { return semSaida_ = true, *this; }
Processo& Processo::semLeitorDaSaida() { return semLeitor_ = true, *this; }
Processo& Processo::comErrosNoTerminal() { return terminal_ = true, *this; }
Processo& Processo::ignorando(int sinal) { return ignorado_ = sinal, *this; }

Processo& Processo::comAmbiente(const std::string& nome, const std::string& valor) {
  const std::string inicio = nome + '=';
  const auto deNome = [&](const std::string& variavel) {
    return variavel.compare(0, inicio.size(), inicio) == 0;
  };
  ambiente_.erase(std::remove_if(ambiente_.begin(), ambiente_.end(), deNome), ambiente_.end());
  ambiente_.push_back(inicio + valor);
  return *this;
}

Processo& Processo::comFalha(const std::string& funcao, int vez, int erro) {
  comAmbiente("LD_PRELOAD", COTEPE_FALHAS).comAmbiente("ASAN_OPTIONS", "verify_asan_link_order=0");
  return comAmbiente("COTEPE_FALHA", funcao + ' ' + std::to_string(vez) + ' ' + std::to_string(erro));
}

// Where the address sanitizer is there, its look for leaks cannot work in a process that is traced already.
Processo& Processo::comRegra(Regra regra) {
  regra_ = std::move(regra);
  return comAmbiente("ASAN_OPTIONS", "detect_leaks=0");
}

Processo& Processo::semPrivilegios() {
  semPrivilegios_ = geteuid() == 0;
  if (semPrivilegios_) argumentos_[0] = copiaParaTodos(COTEPE_PROGRAMA);
  return *this;
}

void Processo::abreTubos() {
  if (pipe2(saida_, O_CLOEXEC) != 0) ADD_FAILURE() << "pipe2";
  if (terminal_ ? openpty(&erros_[0], &erros_[1], nullptr, nullptr, nullptr) != 0
                : pipe2(erros_, O_CLOEXEC) != 0)
    ADD_FAILURE() << "no pipe or terminal for stderr";
  if (!arquivoDaSaida_.empty()) {
    close(saida_[1]);
    saida_[1] = open(arquivoDaSaida_.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
  }
}

Processo& Processo::inicia() {
  abreTubos();
  if (semLeitor_) fecha(saida_[0]);  // before there is anyone who could write
  filho_ = fork();
  if (filho_ == 0) torna();
  fecha(saida_[1]);
  fecha(erros_[1]);
  if (regra_) recolhe(rastreia(filho_, regra_));
  return *this;
}

void Processo::recolhe(std::optional<int> estado) {
  recolhido_ = estado.has_value();
  estado_ = estado.value_or(0);
}

// In the child: every signal does what it does by default, whatever the one that runs the tests ignores or
// blocks.
void Processo::recebeTodosOsSinais() {
  for (int sinal = 1; sinal < NSIG; ++sinal) static_cast<void>(std::signal(sinal, SIG_DFL));
  sigset_t nenhum;
  sigemptyset(&nenhum);
  sigprocmask(SIG_SETMASK, &nenhum, nullptr);
}

// In the child: becomes the program, or ends with 127.
void Processo::torna() {
  recebeTodosOsSinais();
  prctl(PR_SET_PDEATHSIG, SIGKILL);  // no run outlives a test that is killed
  dup2(saida_[1], STDOUT_FILENO);
  dup2(erros_[1], STDERR_FILENO);
  for (const int descritor : {saida_[0], saida_[1], erros_[0], erros_[1]}) close(descritor);
  if (semSaida_) close(STDOUT_FILENO);
  if (ignorado_ != 0) static_cast<void>(std::signal(ignorado_, SIG_IGN));
  const rlimit limite{limite_.value_or(0), limite_.value_or(0)};
  if (limite_) setrlimit(RLIMIT_FSIZE, &limite);
  if (!pasta_.empty() && chdir(pasta_.c_str()) != 0) _exit(127);
  if (semPrivilegios_ && (setgid(kNinguem) != 0 || setuid(kNinguem) != 0)) _exit(127);
  if (regra_) ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
  execve(argumentos_[0].c_str(), ponteiros(argumentos_).data(), ponteiros(ambiente_).data());
  _exit(127);
}

void Processo::envia(int sinal) const { EXPECT_EQ(kill(filho_, sinal), 0) << "signal " << sinal; }

void Processo::espereParado() {
  ASSERT_EQ(waitpid(filho_, &estado_, WUNTRACED), filho_);
  ASSERT_TRUE(WIFSTOPPED(estado_));
}

bool Processo::termineEm(int milissegundos) {
  const auto prazo = Relogio::now() + std::chrono::milliseconds(milissegundos);
  while (!recolhido_ && Relogio::now() < prazo) {
    recolhido_ = waitpid(filho_, &estado_, WNOHANG) == filho_;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return recolhido_;
}

// Reads what is there; a closed pipe, or a terminal that nobody has open, is closed here too.
void Processo::le(int tubo, std::string& texto) {
  char bloco[4096];
  const ssize_t lidos = read(tubo, bloco, sizeof bloco);
  if (lidos > 0)
    texto.append(bloco, static_cast<std::size_t>(lidos));
  else
    fecha(tubo == saida_[0] ? saida_[0] : erros_[0]);
}

Fim Processo::espera() {
  Fim fim;
  const auto prazo = Relogio::now() + kPrazo;
  while ((saida_[0] >= 0 || erros_[0] >= 0) && Relogio::now() < prazo) {
    pollfd prontos[] = {{saida_[0], POLLIN, 0}, {erros_[0], POLLIN, 0}};
    if (poll(prontos, 2, 1000) <= 0) continue;
    if (prontos[0].revents != 0) le(saida_[0], fim.saida);
    if (prontos[1].revents != 0) le(erros_[0], fim.erros);
  }
  if (Relogio::now() >= prazo) {
    ADD_FAILURE() << "the program does not end";
    kill(filho_, SIGKILL);
  }
  if (!recolhido_) recolhido_ = waitpid(filho_, &estado_, 0) == filho_;
  if (WIFEXITED(estado_)) fim.situacao = WEXITSTATUS(estado_);
  if (WIFSIGNALED(estado_)) fim.sinal = WTERMSIG(estado_);
  return fim;
}

Fim roda(const std::vector<std::string>& argumentos, const std::string& pasta) {
  return Processo(argumentos).naPasta(pasta).inicia().espera();
}
