// Plain text helpers of the second reading: what is written into a field and how a text is read.
#pragma once

#include <cstdint>
#include <string>

namespace referencia {

// "%-20s": the text and blanks on its right up to `largura`; a longer text stays whole.
std::string esquerda(const std::string& texto, int largura);

// "%8s" of a one-blank text: `largura` blanks.
std::string brancos(int largura);

// "%0*lld" with width `largura`.
std::string zeros(std::int64_t valor, int largura);

// "%0*llu" with width `largura`: a negative value shows its 64-bit two's complement.
std::string semSinal(std::int64_t valor, int largura);

// atoll, but a value beyond 64 bits stays at the limit it passed.
std::int64_t inteiro(const std::string& texto);

// atof of the C locale.
double decimal(const std::string& texto);

// The integer part of x + 0.5 (x > 0) or of x - 0.5; stays at the limits of int; not a number gives 0.
int arredonda(double x);

// A money text as the database holds it, in cents: see Dinheiro.cpp.
std::int64_t centavos(const std::string& texto);

// "%11.2f" of the C locale, right-aligned in 11 places.
std::string duasCasas(double valor);

// YYYY-MM-DD HH:MM:SS to YYYYMMDD and to HHMMSS, by position. A position beyond the end of the text is a
// terminator, and so the result ends there.
std::string formataData(const std::string& texto);
std::string formataHora(const std::string& texto);

std::string remove(const std::string& texto, char c);
std::string troca(const std::string& texto, char de, char para);

// Every byte that is at most 31 as a signed char becomes a blank: 0 to 31 and 128 to 255.
std::string removeNaoAscii(const std::string& texto);

// The padding of the host in mode 1: left-aligned, blanks on the right, exactly `largura` bytes.
std::string preenche(const std::string& texto, int largura);

// At most `maximo` bytes of the text.
std::string limita(const std::string& texto, std::size_t maximo);

}  // namespace referencia
