// The keys of a signature: RSA of 1024 bits, as the law requires.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "Assinatura/LinhaEad.h"

struct evp_pkey_st;

namespace cotepe {

/// Provides the pass phrase of an encrypted key; false when there is none.
using PedeFrase = std::function<bool(std::string& frase)>;

struct LiberaChave {
  void operator()(evp_pkey_st* chave) const noexcept;
};
using ChaveDaBiblioteca = std::unique_ptr<evp_pkey_st, LiberaChave>;

/// Throws ErroDaAssinatura (RsaRecusado, AssinaturaErrada) when the operation fails.
class ChavePublica {
 public:
  /// From PEM or XML: the text of a file. Throws ErroDaAssinatura.
  static ChavePublica le(std::string_view texto);

  /// What the signature holds; false when it is not a number below the modulus.
  bool abre(const BlocoRsa& assinatura, BlocoRsa& bloco) const;

  std::string pem() const;
  /// Without a name, the one that it was read with is used.
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
  /// From PEM, PKCS#8 or the older form of RSA: the text of a file. `pede` is asked when the key is
  /// encrypted. Throws ErroDaAssinatura.
  static ChavePrivada le(std::string_view texto, const PedeFrase& pede);

  /// The block signed by RSA without padding, and opened again to check the result.
  BlocoRsa assina(const BlocoRsa& bloco) const;

  /// The public half.
  ChavePublica publica() const;

 private:
  explicit ChavePrivada(ChaveDaBiblioteca chave);

  ChaveDaBiblioteca chave_;
};

}  // namespace cotepe
