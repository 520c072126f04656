#include "Rastreio.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstddef>
#include <string_view>

#ifndef __x86_64__
#error "the tests of the program know the registers of x86-64 alone"
#endif

namespace {

constexpr int kParadaEmChamada = SIGTRAP | 0x80;  // PTRACE_O_TRACESYSGOOD

// Where the kernel keeps a register of a stopped process.
constexpr std::size_t kNumero = offsetof(user, regs.orig_rax);
constexpr std::size_t kResultado = offsetof(user, regs.rax);
constexpr std::size_t kTerceiro = offsetof(user, regs.rdx);

void poe(pid_t filho, std::size_t registrador, long valor) {
  EXPECT_EQ(ptrace(PTRACE_POKEUSER, filho, registrador, valor), 0) << "ptrace";
}

__ptrace_syscall_info situacao(pid_t filho) {
  __ptrace_syscall_info info{};
  EXPECT_GT(ptrace(PTRACE_GET_SYSCALL_INFO, filho, sizeof info, &info), 0) << "ptrace";
  return info;
}

Chamada chamadaDe(pid_t filho, const __ptrace_syscall_info& info) {
  Chamada chamada{filho, static_cast<long>(info.entry.nr), {}};
  std::copy(std::begin(info.entry.args), std::end(info.entry.args), chamada.argumentos.begin());
  return chamada;
}

void prepara(const Destino& destino, const Chamada& chamada) {
  if (destino.tipo == Destino::MataAntes || destino.tipo == Destino::Erra) poe(chamada.quem, kNumero, -1);
  if (destino.tipo == Destino::Encurta)
    poe(chamada.quem, kTerceiro, static_cast<long>(std::max(chamada.argumentos[2] / 2, 1UL)));
  if (destino.tipo == Destino::MataAntes) kill(chamada.quem, SIGKILL);
}

void conclui(const Destino& destino, pid_t filho) {
  if (destino.tipo == Destino::Erra) poe(filho, kResultado, -destino.erro);
  if (destino.tipo == Destino::MataDepois) kill(filho, SIGKILL);
}

// Whether a sanitizer tries a piece of memory: it has a pipe of its own for that. Only stdout and stderr are
// pipes of the program.
bool doSanitizador(const Chamada& chamada) {
  return (chamada.numero == SYS_write || chamada.numero == SYS_close) &&
         chamada.argumentos[0] > STDERR_FILENO && chamada.alvo().compare(0, 5, "pipe:") == 0;
}

std::string textoEm(pid_t filho, unsigned long endereco) {
  char texto[PATH_MAX] = {};
  const iovec aqui{texto, sizeof texto - 1}, la{reinterpret_cast<void*>(endereco), sizeof texto - 1};
  process_vm_readv(filho, &aqui, 1, &la, 1, 0);  // less than asked for, where the memory ends
  return texto;
}

// Whether a program that was built to measure what tests reach keeps its counts, which it does at its end.
bool daMedicao(const Chamada& chamada) {
  constexpr std::string_view kFim = ".gcda";
  const std::string nome =
      chamada.numero == SYS_openat ? textoEm(chamada.quem, chamada.argumentos[1]) : chamada.alvo();
  return nome.size() > kFim.size() && nome.compare(nome.size() - kFim.size(), kFim.size(), kFim) == 0;
}

// Lets the child go on to its next stop. False when it has none.
bool adiante(pid_t filho, int& estado) {
  const int sinal = WSTOPSIG(estado) == kParadaEmChamada ? 0 : WSTOPSIG(estado);
  ptrace(PTRACE_SYSCALL, filho, nullptr, sinal);
  return waitpid(filho, &estado, 0) == filho && WIFSTOPPED(estado);
}

}  // namespace

std::string Chamada::alvo() const {
  char nome[PATH_MAX];
  const std::string elo = "/proc/" + std::to_string(quem) + "/fd/" + std::to_string(argumentos[0]);
  const ssize_t tamanho = readlink(elo.c_str(), nome, sizeof nome);
  return {nome, static_cast<std::size_t>(std::max<ssize_t>(tamanho, 0))};
}

std::optional<int> rastreia(pid_t filho, const Regra& regra) {
  int estado = 0;
  if (waitpid(filho, &estado, 0) != filho || !WIFSTOPPED(estado)) return estado;
  ptrace(PTRACE_SETOPTIONS, filho, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
  estado = W_STOPCODE(kParadaEmChamada);  // the signal that it stopped with is not its own
  Destino destino;
  while (adiante(filho, estado)) {
    if (WSTOPSIG(estado) != kParadaEmChamada) continue;
    const __ptrace_syscall_info info = situacao(filho);
    if (info.op == PTRACE_SYSCALL_INFO_EXIT) {
      conclui(destino, filho);
      if (destino.tipo == Destino::MataDepois) return std::nullopt;
      destino = {};
      continue;
    }
    const Chamada chamada = chamadaDe(filho, info);
    if (chamada.numero == SYS_exit_group) {
      ptrace(PTRACE_DETACH, filho, nullptr, nullptr);
      return std::nullopt;
    }
    if (doSanitizador(chamada) || daMedicao(chamada)) continue;
    prepara(destino = regra(chamada), chamada);
    if (destino.tipo == Destino::MataAntes) return std::nullopt;
  }
  return estado;
}

bool grava(const Chamada& chamada) {
  switch (chamada.numero) {
    case SYS_openat:
      return (chamada.argumentos[2] & O_CREAT) != 0;
    case SYS_open:
      return (chamada.argumentos[1] & O_CREAT) != 0;
    case SYS_write:
    case SYS_writev:
    case SYS_pwrite64:
    case SYS_ftruncate:
    case SYS_fsync:
    case SYS_fdatasync:
    case SYS_close:
    case SYS_rename:
    case SYS_renameat:
    case SYS_renameat2:
    case SYS_link:
    case SYS_linkat:
    case SYS_unlink:
    case SYS_unlinkat:
      return true;
    default:
      return false;
  }
}
