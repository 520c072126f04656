#include "SaidaDoLaudo.h"

#include <nlohmann/json.hpp>
#include <ostream>

#include "Idioma/Idioma.h"
#include "Idioma/Utf8.h"

namespace cotepe::programa {
namespace {

std::string palavras(Parecer parecer) {
  switch (parecer) {
    case Parecer::Valida:
      return traduz("valid");
    case Parecer::Alterada:
      return traduz("changed");
    case Parecer::NaoSeSabe:
      break;
  }
  return traduz("cannot be told");
}

bool confere(const Laudo& laudo) { return laudo.conteudo == Conteudo::Confere; }

std::string daLinha(const Laudo& laudo, Diagnostico diagnostico) {
  const std::string linha = std::to_string(laudo.linhaDaEad);
  switch (diagnostico) {
    case Diagnostico::TextoDepois:
      return laudo.depois != 0
                 ? fraseDe("{n} byte follows the signature of line {1}; it must be the end of the file",
                           "{n} bytes follow the signature of line {1}; it must be the end of the file",
                           static_cast<long long>(laudo.depois), {linha})
                 : frase("text follows the digits of the signature in line {1}", {linha});
    case Diagnostico::DuasEads:
      return fraseDe("{n} line begins with EAD; line {1} is judged",
                     "{n} lines begin with EAD; line {1} is judged", laudo.eads, {linha});
    case Diagnostico::DigitosPerdidos:
      return fraseDe("the signature has {n} digit instead of 256: zeros in front were lost",
                     "the signature has {n} digits instead of 256: zeros in front were lost",
                     static_cast<long long>(laudo.digitos));
    case Diagnostico::SemDigitos:
      return frase("the EAD line, {1}, holds no signature: 256 hexadecimal digits are expected", {linha});
    default:
      return {};
  }
}

std::string doResumo(const Laudo& laudo, Diagnostico diagnostico) {
  switch (diagnostico) {
    case Diagnostico::Md5Puro:
      return confere(laudo) ? traduz(
                                  "the EAD line is the MD5 of the file, which nobody signed: anyone can "
                                  "write it")
                            : traduz("the EAD line is an MD5, which nobody signed: anyone can write it");
    case Diagnostico::OutroConteudo:
      return frase("the hash differs: the EAD line holds MD5 {1}, the file before it has {2}",
                   {textoDoResumo(laudo.assinado), textoDoResumo(laudo.resumo)});
    case Diagnostico::OutroOuOutraChave:
      return traduz("the hash differs, or the key is another");
    case Diagnostico::ResumoInvertido:
      return traduz("the hash was signed with its bytes in reverse order; the content is the one signed");
    case Diagnostico::ResumoEmTexto:
      return traduz("the hash was signed as 32 digits of text instead of 16 bytes");
    case Diagnostico::OutroResumo:
      return traduz("signed with this key in the form of PKCS#1, but something else than MD5");
    default:
      return {};
  }
}

std::string explicacao(const Laudo& laudo, Diagnostico diagnostico) {
  switch (diagnostico) {
    case Diagnostico::SemEad:
      return traduz("no line begins with EAD: the file is not signed");
    case Diagnostico::FinsDeLinha:
      return traduz(
          "the line ends were changed on the way; with those it had, the content is the one signed");
    case Diagnostico::Bom:
      return traduz("a byte-order mark stands in front of the file");
    case Diagnostico::Pkcs1:
      return traduz("signed in the form of PKCS#1 v1.5, which is not the law's");
    case Diagnostico::OutraChave:
      return traduz("signed with another key, or by a method of the maker's own");
    case Diagnostico::DigitosMisturados:
      return traduz("the digits are in upper and lower case, as no program writes them");
    default:
      break;
  }
  const std::string texto = daLinha(laudo, diagnostico);
  return texto.empty() ? doResumo(laudo, diagnostico) : texto;
}

}  // namespace

void escreveTexto(std::ostream& saida, const std::string& arquivo, const Laudo& laudo) {
  saida << arquivo << ": " << palavras(laudo.parecer) << '\n';
  for (const Diagnostico diagnostico : laudo.diagnosticos)
    saida << "  " << nomeDe(diagnostico) << ": " << explicacao(laudo, diagnostico) << '\n';
}

void escreveJson(std::ostream& saida, const std::string& arquivo, const Laudo& laudo) {
  nlohmann::ordered_json objeto = {{"file", emUtf8(arquivo)},
                                   {"verdict", nomeDe(laudo.parecer)},
                                   {"content", nomeDe(laudo.conteudo)},
                                   {"lines", laudo.linhas},
                                   {"ead_lines", laudo.eads}};
  if (laudo.linhaDaEad != 0) objeto["ead_line"] = laudo.linhaDaEad;
  objeto["md5"] = textoDoResumo(laudo.resumo);
  if (laudo.temAssinado) objeto["signed_md5"] = textoDoResumo(laudo.assinado);
  objeto["findings"] = nlohmann::ordered_json::array();
  for (const Diagnostico diagnostico : laudo.diagnosticos)
    objeto["findings"].push_back({{"name", nomeDe(diagnostico)}, {"text", explicacao(laudo, diagnostico)}});
  saida << objeto.dump() << '\n';
}

}  // namespace cotepe::programa
