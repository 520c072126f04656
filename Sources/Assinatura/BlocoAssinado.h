// The block of 128 bytes around a hash that RSA signs, as the law defines it and as it is found in files.
#pragma once

#include <cstdint>

#include "Assinatura/LinhaEad.h"

namespace cotepe {

/// How a signature is made.
enum class FormaDoBloco : std::uint8_t {
  Lei,   ///< the byte 0x10, the hash, zeros
  Pkcs1  ///< PKCS#1 v1.5: the hash in a DigestInfo of MD5
};

/// The block of a hash.
BlocoRsa compoeBloco(const ResumoMd5& resumo, FormaDoBloco forma);

/// What a block looks like.
enum class Feitio : std::uint8_t {
  Desconhecido,
  Lei,         ///< 0x10, 16 bytes, and one byte repeated
  LeiLivre,    ///< 0x10 and anything: only the first byte says so, which happens by chance once in 256
  Pkcs1,       ///< PKCS#1 v1.5 around a DigestInfo of MD5, or around 16 bytes alone
  Pkcs1Outro,  ///< PKCS#1 v1.5 around something else
  Texto        ///< the hash as 32 hexadecimal digits of text
};

struct BlocoLido {
  Feitio feitio = Feitio::Desconhecido;
  ResumoMd5 resumo{};  ///< set for all but the unknown and Pkcs1Outro
};

/// What a signature holds, once the public key has opened it.
BlocoLido leBloco(const BlocoRsa& bloco);

}  // namespace cotepe
