// Why signing or verifying could not be done.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace cotepe {

enum class ProblemaDaAssinatura : std::uint8_t {
  ChaveNaoAbre,      ///< its file cannot be read; `numero` is an errno
  ChaveIlegivel,     ///< neither PEM nor XML of a key
  XmlInvalido,       ///< XML, but not a key; `numero` is a FaltaDaChaveXml
  EraPublica,        ///< a public key where the private one is needed
  EraPrivada,        ///< a private key where the public one is needed
  ChaveNaoERsa,      ///< another kind of key
  TamanhoDaChave,    ///< of `numero` bits, not 1024
  ExpoenteDaChave,   ///< an exponent below 3, or even
  FraseFaltando,     ///< the key is encrypted, and no pass phrase was given
  FraseErrada,       ///< it does not open the key
  CifraRecusada,     ///< the system lacks the cipher that the key is encrypted with
  Md5Recusado,       ///< the system's policy refuses MD5
  RsaRecusado,       ///< the system's policy refuses RSA of 1024 bits
  AssinaturaErrada,  ///< what RSA returned does not open to what was signed
  Leitura,           ///< the file cannot be read; `numero` is an errno
  NaoERelatorio      ///< `numero` is an Estranheza; `linha` its line
};

class ErroDaAssinatura : public std::exception {
 public:
  /// `detalhe`: the words of the cryptography library, or empty.
  explicit ErroDaAssinatura(ProblemaDaAssinatura problema, long numero = 0, std::string detalhe = {})
      : problema_(problema), numero_(numero), detalhe_(std::move(detalhe)) {}

  ProblemaDaAssinatura problema() const { return problema_; }
  long numero() const { return numero_; }
  long linha() const { return linha_; }
  const std::string& detalhe() const { return detalhe_; }
  const char* what() const noexcept override { return "cannot sign or verify"; }

  ErroDaAssinatura naLinha(long linha) && {
    linha_ = linha;
    return std::move(*this);
  }

 private:
  ProblemaDaAssinatura problema_;
  long numero_;
  long linha_ = 0;
  std::string detalhe_;
};

}  // namespace cotepe
