// The program and its surroundings: its three streams, its executable, and requests to stop.
#pragma once

#include <cstddef>
#include <string>

namespace cotepe {

/// Whether a descriptor is a terminal, where people read.
bool ehTerminal(int descritor);

/// How many columns a terminal has; 0 when the descriptor is not a terminal, or it does not say.
std::size_t colunasDoTerminal(int descritor);

/// Asks on the terminal, whatever stdin and stderr are, and reads one line without showing it. Returns false
/// when there is no terminal or no answer, or a signal came; the terminal is left as it was.
bool perguntaEmSegredo(const std::string& pergunta, std::string& resposta);

/// To be called first: opens what the caller left closed of descriptors 0 to 2, so that no file of ours takes
/// such a number and is written to as if it were stdout or stderr (reading and writing there still fail); and
/// makes the three pass bytes unchanged, in UTF-8.
void preparaFluxosPadrao() noexcept;

/// Handles the signals that ask a program to stop (SIGINT, SIGTERM and SIGHUP, except those that the
/// program's caller ignores), so that system calls end early with EINTR; ignores SIGPIPE and SIGXFSZ, so that
/// the failed write is seen instead.
void instalaSinais();

/// The first of those signals that came, or 0.
int sinalRecebido() noexcept;

/// The number of the signal that ends a writer whose reader went away.
constexpr int kSinalSemLeitor = 13;

/// The name of a signal, or empty.
const char* nomeDoSinal(int sinal);

/// The arguments of main() in UTF-8; `argc` becomes their count. They have static storage duration.
char** argumentosEmUtf8(int& argc, char** argv);

/// The language that the system's user chose where no environment variable says one, as "pt-BR"; empty when
/// only the environment says so.
std::string idiomaDoSistema();

/// The folder of the running program; empty when it is unknown.
std::string pastaDoPrograma();

}  // namespace cotepe
