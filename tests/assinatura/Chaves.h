// Keys and signatures for the tests: made here, never kept.
#pragma once

#include <string>

#include "Assinatura/Chaves.h"
#include "Assinatura/FormaDeEntrega.h"
#include "Assinatura/Laudo.h"

/// A private key in PEM, PKCS#8, of RSA; made anew at each call.
std::string novaChavePem(int bits = 1024);

/// The one key of a test program.
const std::string& chavePem();
const cotepe::ChavePrivada& chavePrivada();
const cotepe::ChavePublica& chavePublica();

/// The public key of the vectors.
extern const char* const kModuloDoVetor;
cotepe::ChavePublica chaveDoVetor();

/// Reads from memory in pieces of so many bytes; the text must live longer.
cotepe::LeituraDeBytes leituraDe(const std::string& texto, std::size_t pedaco = 1 << 18);

cotepe::Laudo laudoDe(const std::string& texto, const cotepe::ChavePublica& chave);

/// The text signed by `assina`, in the law's form unless another is asked for.
std::string assinado(const std::string& texto, cotepe::FormaDoBloco forma = cotepe::FormaDoBloco::Lei);

/// An EAD line, without a line end, around a block of any shape.
std::string eadDe(const cotepe::BlocoRsa& bloco);

/// MD5 of a text.
cotepe::ResumoMd5 md5De(const std::string& texto);
