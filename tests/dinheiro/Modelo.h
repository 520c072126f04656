// The model the money types are measured against: integers without bounds, and its own reader of text.
#pragma once

#include <rapidcheck.h>

#include <boost/multiprecision/cpp_int.hpp>
#include <iosfwd>
#include <string>

#include "Financial.h"

// Without expression templates, so that every result is a plain value.
using Inteiro =
    boost::multiprecision::number<boost::multiprecision::cpp_int_backend<>, boost::multiprecision::et_off>;

Inteiro inteiro(const BigInt& valor);
BigInt bigInt(const Inteiro& valor);  // of a value in range

// The value, or the end of the range it lies beyond: of 96 bits, or of 64.
Inteiro satura(const Inteiro& valor);
INT64 satura64(const Inteiro& valor);

// numerador / denominador rounded half away from zero.
Inteiro arredonda(const Inteiro& numerador, const Inteiro& denominador);

Inteiro potenciaDeDez(unsigned expoente);

// A finite double is escalado(it) / kEscala, exactly: kEscala is 2^1074.
extern const Inteiro kEscala;
Inteiro escalado(double valor);

// The cents of a text in which the comma separates decimals; 0 for a text that is no number.
Inteiro leTexto(const std::string& texto);

std::string troca(std::string texto, char de, char para);

// How failures show the two types.
void PrintTo(const BigInt& valor, std::ostream* saida);
void PrintTo(const Financial& valor, std::ostream* saida);
void showValue(const BigInt& valor, std::ostream& saida);
void showValue(const Financial& valor, std::ostream& saida);

// Any value, as often small, near an end of the range, or around a power of two.
template <>
struct rc::Arbitrary<BigInt> {
  static Gen<BigInt> arbitrary();
};

template <>
struct rc::Arbitrary<Financial> {
  static Gen<Financial> arbitrary();
};
