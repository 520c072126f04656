#include "Leiaute/Composicao.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "Financial.h"
#include "Leiaute/Releitura.h"
#include "Leiaute/Texto.h"

namespace cotepe {
namespace {

const char* textoDe(const Campo& campo, const Fonte& fonte, const Execucao& execucao) {
  switch (campo.origem.tipo) {
    case Origem::Tipo::Coluna:
      return fonte.texto(campo.origem.coluna);
    case Origem::Tipo::Ajuste:
      return execucao.ajustes().*campo.origem.ajuste;
    case Origem::Tipo::Funcao:
      return campo.origem.funcao(fonte, execucao);
    case Origem::Tipo::Constante:
      return campo.origem.constante;
    default:  // Nenhuma; the others are decided by the settings
      break;
  }
  return "";
}

// Cleans a terminated text as the field asks and returns the length that is left.
std::size_t limpa(const Campo& campo, char* texto, std::size_t tamanho) {
  if (campo.removePontos) tamanho = removeCaractere(texto, '.');
  if (campo.removeHifens) tamanho = removeCaractere(texto, '-');
  if (campo.trocaNaoAscii) tamanho = trocaNaoAscii(texto);
  return tamanho;
}

std::size_t escreveTexto(Linha& linha, const Campo& campo, const char* texto, std::size_t largura) {
  const std::size_t tamanho = std::strlen(texto);
  char* destino = linha.espaco(std::max(tamanho, largura));
  std::memcpy(destino, texto, tamanho + 1);
  const std::size_t limpo = limpa(campo, destino, tamanho);
  if (campo.especie != Especie::Texto || limpo >= largura) return limpo;
  std::memset(destino + limpo, ' ', largura - limpo);
  return largura;
}

// The host's routine takes a text that it may modify and fills the width; when it writes more or less, the
// law of the line applies to what it wrote.
std::size_t escrevePreenchido(Linha& linha, const Campo& campo, const char* texto, const Execucao& execucao) {
  const std::size_t tamanho = std::strlen(texto);
  const auto largura = static_cast<std::size_t>(campo.largura);
  const std::size_t destinado = std::max(tamanho, largura) + 1;
  char* destino = linha.espaco(destinado + tamanho + 1);
  char* copia = destino + destinado;
  std::memcpy(copia, texto, tamanho + 1);
  limpa(campo, copia, tamanho);
  std::memset(destino, 0, destinado);
  execucao.hospedeiro().preenche(copia, destino, campo.largura);
  return strnlen(destino, destinado - 1);
}

std::size_t escreveData(Linha& linha, Especie especie, const char* texto) {
  char* destino = linha.espaco(kLarguraData);
  if (especie == Especie::Data)
    formataData(texto, destino);
  else
    formataHora(texto, destino);
  return std::strlen(destino);
}

// In the next three, most texts are digits that fit their field: these are copied without being parsed and
// printed, which saves 3.6 % of the instructions of a run. A modulus is never less than the field can hold.
std::size_t escreveInteiro(Linha& linha, const char* texto, std::int64_t modulo, std::size_t largura) {
  if (linha.escreveDigitos(texto, 0, largura)) return largura;
  const std::int64_t valor = leInteiro(texto);
  return linha.escreveNumero(modulo == 0 ? valor : valor % modulo, largura);
}

std::size_t escreveDinheiro(Linha& linha, const char* texto, std::size_t largura) {
  if (linha.escreveDigitos(texto, 2, largura)) return largura;
  return linha.escreveSemSinal(static_cast<std::uint64_t>(Financial::CentavosDoBanco(texto)), largura);
}

// Of at most nine digits the product with the power of ten, and its rounding, are the digits themselves.
std::size_t escreveDecimal(Linha& linha, const Campo& campo, const char* texto, std::size_t largura,
                           const Fonte& fonte) {
  const bool tres = campo.colunaDasCasas >= 0 && leInteiro(fonte.texto(campo.colunaDasCasas)) == 3;
  if (largura <= 9 && linha.escreveDigitos(texto, tres ? 3 : 2, largura)) return largura;
  return linha.escreveNumero(arredonda(leDecimal(texto) * (tres ? 1000.0 : 100.0)), largura);
}

// Writes the field at the cursor and returns the count of bytes.
std::size_t escreve(Linha& linha, const Campo& campo, std::size_t largura, const Fonte& fonte,
                    const Execucao& execucao) {
  const char* texto = textoDe(campo, fonte, execucao);
  switch (campo.especie) {
    case Especie::Texto:
    case Especie::ComoEsta:
    case Especie::DataPronta:
    case Especie::HoraPronta:
      return escreveTexto(linha, campo, texto, largura);
    case Especie::Preenchido:
      return escrevePreenchido(linha, campo, texto, execucao);
    case Especie::Contador:
    case Especie::Numero:
      return escreveInteiro(linha, texto, campo.modulo, largura);
    case Especie::Identificador:
      return linha.escreveSemSinal(static_cast<std::uint64_t>(leInteiro(texto)), largura);
    case Especie::Dinheiro:
      return escreveDinheiro(linha, texto, largura);
    case Especie::DinheiroDuplo:
      return linha.escreveSemSinal(static_cast<std::uint64_t>(Financial::CentavosDoDecimal(leDecimal(texto))),
                                   largura);
    case Especie::Decimal:
      return escreveDecimal(linha, campo, texto, largura, fonte);
    case Especie::Data:
    case Especie::Hora:
      break;
  }
  return escreveData(linha, campo.especie, texto);
}

std::size_t larguraEm(const Campo& campo, const Execucao& execucao) {
  return static_cast<std::size_t>(
      campo.largura == Campo::kLarguraDoContador ? execucao.ajustes().larguraDoContador : campo.largura);
}

// A field that is present under the settings, with everything about it that they decide.
Campo comAjustes(const Campo& campo, const Execucao& execucao) {
  Campo decidido = campo;
  decidido.largura = static_cast<int>(larguraEm(campo, execucao));
  if (campo.especie == Especie::Contador) decidido.modulo = execucao.ajustes().moduloDoContador;
  if (campo.origem.tipo == Origem::Tipo::Relogio) decidido.origem = coluna(campo.origem.coluna);
  if (campo.origem.tipo == Origem::Tipo::DoLeiaute)
    decidido.origem =
        constante(execucao.ajustes().versao == 1 ? campo.origem.constante : campo.origem.nosOutros);
  return decidido;
}

// The fields that are present. Made once for all rows of a query.
std::vector<Campo> comAjustes(Campos campos, const Execucao& execucao) {
  std::vector<Campo> decididos;
  decididos.reserve(campos.size());
  for (const Campo& campo : campos) {
    const bool existe = campo.existe(execucao.ajustes().versao, execucao.ajustes().cat52);
    if (existe) decididos.push_back(comAjustes(campo, execucao));
  }
  return decididos;
}

// Appends fields already resolved against the settings. This is the only place that writes a field: with a
// second one the compiler no longer inlines the writing into the loop, which costs 2 % of the instructions of
// a run.
void poe(Linha& linha, Campos decididos, const Fonte& fonte, const Execucao& execucao) {
  for (const Campo& campo : decididos) {
    if (campo.posicao != 0) linha.vaiPara(static_cast<std::size_t>(campo.posicao - 1));
    const auto largura = static_cast<std::size_t>(campo.largura);
    const std::size_t escritos = escreve(linha, campo, largura, fonte, execucao);
    const std::size_t nominal = campo.desloca ? std::max(escritos, largura) : largura;
    linha.avanca(escritos, campo.naoAvanca ? 0 : nominal);
  }
}

// Moves the line to the field's position; false when the field is absent under the run's settings.
bool chega(Linha& linha, const Campo& campo, const Execucao& execucao) {
  if (!campo.existe(execucao.ajustes().versao, execucao.ajustes().cat52)) return false;
  if (campo.posicao != 0) linha.vaiPara(static_cast<std::size_t>(campo.posicao - 1));
  return true;
}

// The leading fields that are the same in every record: written once, and never replaced by blanks.
std::size_t camposFixos(Campos campos) {
  std::size_t n = 0;
  while (n < campos.size() && campos[n].origem.fixa()) ++n;
  return n;
}

}  // namespace

void compoe(Linha& linha, Campos campos, const Fonte& fonte, const Execucao& execucao) {
  for (const Campo& campo : campos) {
    if (!campo.existe(execucao.ajustes().versao, execucao.ajustes().cat52)) continue;
    const Campo decidido = comAjustes(campo, execucao);
    poe(linha, Campos(&decidido, 1), fonte, execucao);
  }
}

void compoeVazio(Linha& linha, Campos campos, const Execucao& execucao) {
  for (const Campo& campo : campos) {
    if (!chega(linha, campo, execucao)) continue;
    const std::size_t largura = larguraEm(campo, execucao);
    const std::size_t nominal = campo.naoAvancaVazio ? 0 : largura;
    if (campo.textoVazio != nullptr)
      linha.poeTexto(campo.textoVazio, largura, nominal);
    else
      linha.poeRepetido(numerica(campo.especie) ? '0' : ' ', largura, nominal);
  }
}

long gravaLinhas(Execucao& execucao, Campos campos, Leitura& leitura, const Fonte& fonte) {
  const std::size_t fixos = camposFixos(campos);
  Linha linha;
  compoe(linha, campos.trecho(0, fixos), fonte, execucao);
  const Linha::Marca cabecalho = linha.marca();
  const std::vector<Campo> daLinha = comAjustes(campos.trecho(fixos), execucao);
  long linhas = 0;
  for (; leitura.avanca(); ++linhas) {
    linha.volta(cabecalho);
    poe(linha, Campos(daLinha.data(), daLinha.size()), fonte, execucao);
    execucao.grava(linha);
  }
  return linhas;
}

void gravaVazio(Execucao& execucao, Campos campos) {
  const std::size_t fixos = camposFixos(campos);
  Linha linha;
  compoe(linha, campos.trecho(0, fixos), SemFonte(), execucao);
  compoeVazio(linha, campos.trecho(fixos), execucao);
  execucao.grava(linha);
}

}  // namespace cotepe
