#include "FalhasDaAssinatura.h"

#include "Assinatura/ChaveXml.h"
#include "Assinatura/FormaDeEntrega.h"
#include "Idioma/Idioma.h"

namespace cotepe::programa {
namespace {

const char* textoDaFalta(long falta) {
  switch (static_cast<FaltaDaChaveXml>(falta)) {
    case FaltaDaChaveXml::NaoEXml:
      return traduz("it is XML that is not well formed");
    case FaltaDaChaveXml::SemModulo:
      return traduz("it is XML without an element modulo");
    case FaltaDaChaveXml::SemExpoente:
      return traduz("it is XML without an element expoente_publico");
    case FaltaDaChaveXml::Repetida:
      return traduz("it is XML with more than one key");
    case FaltaDaChaveXml::NaoEHexadecimal:
      return traduz("it has a number that is not hexadecimal");
    case FaltaDaChaveXml::Nenhuma:
      break;
  }
  return "";
}

std::string daChave(const std::string& motivo, const std::string& onde) {
  return frase(
      "cannot use the key {1}: {2}; expected an RSA key of 1024 bits in PEM or, a public one, in XML",
      {onde, motivo});
}

std::string naoAbre(const std::string& motivo, const std::string& onde) {
  return frase("cannot open the key {1}: {2}", {onde, motivo});
}

std::string daPolitica(const char* recusado, const ErroDaAssinatura& erro) {
  return frase(
      "the system's settings refuse {1}, which the law wants for a signature: {2}; see openssl.cnf "
      "and OPENSSL_CONF",
      {traduz(recusado), erro.detalhe()});
}

std::string doArquivoDaChave(const ErroDaAssinatura& erro, const std::string& onde) {
  switch (erro.problema()) {
    case ProblemaDaAssinatura::ChaveNaoAbre:
      return frase("cannot read the key {1}: {2}", {onde, motivoDoSistema(static_cast<int>(erro.numero()))});
    case ProblemaDaAssinatura::XmlInvalido:
      return daChave(textoDaFalta(erro.numero()), onde);
    case ProblemaDaAssinatura::EraPublica:
      return frase("cannot sign with {1}: it is a public key; name the private one", {onde});
    case ProblemaDaAssinatura::EraPrivada:
      return frase("cannot verify with {1}: it is a private key; cotepe public-key makes the public one",
                   {onde});
    case ProblemaDaAssinatura::ChaveNaoERsa:
      return daChave(traduz("it is not an RSA key"), onde);
    case ProblemaDaAssinatura::TamanhoDaChave:
      return daChave(frase("it has {1} bits", {std::to_string(erro.numero())}), onde);
    case ProblemaDaAssinatura::ExpoenteDaChave:
      return daChave(traduz("its public exponent is none of RSA"), onde);
    case ProblemaDaAssinatura::FraseFaltando:
      return naoAbre(traduz("it is encrypted, and there is no pass phrase; give --passphrase-file or set "
                            "COTEPE_PASSPHRASE"),
                     onde);
    case ProblemaDaAssinatura::FraseErrada:
      return naoAbre(traduz("its pass phrase is another one"), onde);
    case ProblemaDaAssinatura::CifraRecusada:
      return naoAbre(frase("this system lacks the cipher that it is encrypted with: {1}; encrypt it again "
                           "with openssl pkcs8",
                           {erro.detalhe()}),
                     onde);
    default:
      return daChave(traduz("it is no key"), onde);
  }
}

std::string texto(const ErroDaAssinatura& erro, const std::string& onde) {
  switch (erro.problema()) {
    case ProblemaDaAssinatura::Md5Recusado:
      return daPolitica(marca("MD5"), erro);
    case ProblemaDaAssinatura::RsaRecusado:
      return daPolitica(marca("RSA with 1024 bits"), erro);
    case ProblemaDaAssinatura::AssinaturaErrada:
      return traduz("the key does not open what it signs; it is damaged");
    case ProblemaDaAssinatura::Leitura:
      return frase("cannot read the report {1} to its end: {2}",
                   {onde, motivoDoSistema(static_cast<int>(erro.numero()))});
    case ProblemaDaAssinatura::NaoERelatorio:
      return frase("{1} is no report, and was not signed: {2}; --force signs it as it is",
                   {onde, textoDaEstranheza(erro.numero(), erro.linha())});
    default:
      return doArquivoDaChave(erro, onde);
  }
}

}  // namespace

std::string textoDaEstranheza(long estranheza, long linha) {
  const std::string qual = std::to_string(linha);
  switch (static_cast<Estranheza>(estranheza)) {
    case Estranheza::Vazio:
      return traduz("it has no records");
    case Estranheza::Bom:
      return traduz("a byte-order mark stands in front of it");
    case Estranheza::PrimeiraNaoEE01:
      return traduz("its first line is not record E01");
    case Estranheza::SemRegistro:
      return frase("line {1} begins with no register", {qual});
    case Estranheza::CrNaLinha:
      return frase("line {1} has a carriage return inside", {qual});
    case Estranheza::EadNoMeio:
      return frase("line {1} follows an EAD line", {qual});
    case Estranheza::Nenhuma:
      break;
  }
  return {};
}

Falha falhaDaAssinatura(const ErroDaAssinatura& erro, const std::string& onde, int situacao) {
  return {situacao, texto(erro, onde)};
}

}  // namespace cotepe::programa
