// The program's place among others: its three streams, its executable, and those who ask it to stop.
#pragma once

#include <cstddef>
#include <string>

namespace cotepe {

/// Whether a descriptor is a terminal, where people read.
bool ehTerminal(int descritor);

/// How many columns a terminal has; 0 where the descriptor is none, or it does not say.
std::size_t colunasDoTerminal(int descritor);

/// Asks on the terminal, whatever stdin and stderr are, and reads one line without showing it. False where
/// there is no terminal, no answer, or a signal came; the terminal is left as it was.
bool perguntaEmSegredo(const std::string& pergunta, std::string& resposta);

/// To be called first: opens what the caller left closed of descriptors 0 to 2, so that no file of ours takes
/// such a number and is written to as if it were stdout or stderr (reading and writing there go on failing);
/// and has the three pass bytes as they are, in UTF-8.
void preparaFluxosPadrao() noexcept;

/// Takes over what asks a program to stop (SIGINT, SIGTERM and SIGHUP, those excepted that the caller of the
/// program had ignored), so that system calls end early with EINTR; ignores SIGPIPE and SIGXFSZ, so that the
/// failed write is seen instead.
void instalaSinais();

/// The first of those signals that came, or 0.
int sinalRecebido() noexcept;

/// The number of the signal by which a writer ends whose reader went away.
constexpr int kSinalSemLeitor = 13;

/// The name that a signal has, or nothing.
const char* nomeDoSinal(int sinal);

/// The arguments of main() in UTF-8; `argc` becomes their count. They last as long as the program.
char** argumentosEmUtf8(int& argc, char** argv);

/// The language that the system's user chose where no environment variable says one, as "pt-BR"; empty where
/// the environment alone tells.
std::string idiomaDoSistema();

/// The folder of the running program; empty where it cannot be told.
std::string pastaDoPrograma();

}  // namespace cotepe
