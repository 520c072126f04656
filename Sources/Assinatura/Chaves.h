// The keys of a signature: RSA of 1024 bits, as the law has it.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "Assinatura/LinhaEad.h"

struct evp_pkey_st;

namespace cotepe {

/// Gives the pass phrase of an encrypted key; false where there is none.
using PedeFrase = std::function<bool(std::string& frase)>;

struct LiberaChave {
  void operator()(evp_pkey_st* chave) const noexcept;
};
using ChaveDaBiblioteca = std::unique_ptr<evp_pkey_st, LiberaChave>;

/// Throws ErroDaAssinatura (RsaRecusado, AssinaturaErrada) where it cannot do what it is there for.
class ChavePublica {
 public:
  /// Of PEM or XML: the text of a file. Throws ErroDaAssinatura.
  static ChavePublica le(std::string_view texto);

  /// What the signature holds; false where it is no number below the modulus.
  bool abre(const BlocoRsa& assinatura, BlocoRsa& bloco) const;

  std::string pem() const;
  /// The name is the one it was read with, where none is given.
  std::string xml(const std::string& nome = {}) const;
  const std::string& nome() const { return nome_; }

 private:
  friend class ChavePrivada;
  explicit ChavePublica(ChaveDaBiblioteca chave, std::string nome = {});

  ChaveDaBiblioteca chave_;
  std::string nome_;
};

class ChavePrivada {
 public:
  /// Of PEM, PKCS#8 or the older form of RSA: the text of a file. `pede` is asked where the key is
  /// encrypted. Throws ErroDaAssinatura.
  static ChavePrivada le(std::string_view texto, const PedeFrase& pede);

  /// The block as RSA makes a signature of it, nothing added, and opened again to see that it is right.
  BlocoRsa assina(const BlocoRsa& bloco) const;

  /// The half that others are given.
  ChavePublica publica() const;

 private:
  explicit ChavePrivada(ChaveDaBiblioteca chave);

  ChaveDaBiblioteca chave_;
};

}  // namespace cotepe
