// A report in sums: what it says about its period, by day, by month and in total.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "Leiaute/Releitura.h"
#include "Leitor/LeitorDeRegistros.h"
#include "Resumo/Sequencia.h"

namespace cotepe {

/// Adds, staying within 64 bits.
void acumula(Centavos& soma, Centavos parcela) noexcept;

/// Sales, in cents. Gross sales include every item before its discount and every surcharge, even of what was
/// cancelled later: bruta - descontos - cancelamentos = liquida.
struct Valores {
  Centavos bruta = 0, descontos = 0, acrescimos = 0, cancelamentos = 0, liquida = 0;

  void soma(const Valores& outros) noexcept;
};

/// A day, a month, or the whole period.
struct Movimento {
  bool comReducao = false;  ///< whether a Z reduction has its movement here
  Valores dasReducoes;      ///< of the Z reductions, by the day of their movement (E12 and E13)
  Valores dosCupons;        ///< of the coupons, by the day on which they were issued (E14 and E15)
  long reducoes = 0, cupons = 0, cuponsCancelados = 0, itens = 0, itensCancelados = 0;
  long naoFiscais = 0, naoFiscaisCancelados = 0;  ///< documents of E19
  Centavos valorNaoFiscal = 0;                    ///< of those not cancelled
  Sequencia crz, coo, ccf, gnf;  ///< of the reductions, of all documents, of coupons, of non-fiscal documents

  /// The average of a coupon that was not cancelled, in cents rounded down; 0 when there is none.
  Centavos media() const;
  void soma(const Movimento& outro);
};

/// A means of payment, in cents.
struct MeioDePagamento {
  Centavos acumulado = 0;            ///< in the Z reductions (E18)
  Centavos pago = 0, estornado = 0;  ///< on the documents (E21)
  long pagamentos = 0;               ///< of E21
};

/// A partial totalizer: a tax code, or what is neither, such as DT, AT or Can-T.
struct Totalizador {
  Centavos acumulado = 0;  ///< in the Z reductions (E13)
  Centavos dosItens = 0;   ///< net, of the items of E15; nothing cancelled
  long itens = 0;
};

/// An article, of the items of E15; nothing cancelled.
struct Artigo {
  std::string codigo, descricao, unidade;  ///< bytes of the file, without trailing blanks
  std::int64_t milesimos = 0;              ///< the quantity times 1000
  Centavos valor = 0;
  long vezes = 0;
};

/// A technical intervention (E09).
struct Intervencao {
  std::int64_t cro = 0;
  std::string data, hora;  ///< AAAAMMDD and HHMMSS, or whatever is there instead
  std::string perda;       ///< S or N: whether the working memory was lost
  long linha = 0;
};

/// What the file says about the printer and about itself: bytes of its fields without trailing blanks, empty
/// when there is no such record.
struct Identificacao {
  std::string fabricacao, tipo, marca, modelo, versaoSb, numeroSequencial, comando, versaoDoLeiaute,
      versaoDoGerador;                                       // of E01
  std::string cnpj, inscricao, razaoSocial, endereco, cro;   // of E02, the first
  std::string crzInicial, crzFinal, dataInicial, dataFinal;  // of E01
  Centavos totalGeral = -1;                                  ///< of E02; below 0 when it cannot be read
  std::string dataDeGeracao, horaDeGeracao;                  // of E11
};

/// Everything.
struct ResumoDoRelatorio {
  static constexpr std::size_t kMaximoDeArtigos = 100000;  ///< different articles that are told apart

  Identificacao identificacao;
  AjusteDoLeiaute leiaute;
  long linhas = 0, desconhecidas = 0;  ///< all lines, and those of no register
  std::uint64_t bytes = 0;
  std::array<long, kCatalogo.size()> registros{};  ///< lines of each, placeholders among them
  std::array<long, kCatalogo.size()> vazios{};     ///< placeholders of each
  long ilegiveis = 0;  ///< records left out of a sum because one of their numbers cannot be read
  long semDia = 0;     ///< records left out of the days because theirs is unknown

  std::map<std::string, Movimento> dias;  ///< by AAAAMMDD
  Movimento total;
  std::map<std::string, MeioDePagamento> meios;
  std::map<std::string, Totalizador> totalizadores;
  std::map<std::string, Centavos> naoFiscais;  ///< by totalizer, in the Z reductions (E17)
  std::map<std::string, long> documentos;      ///< of E16, by symbol
  std::vector<Artigo> artigos;
  long itensDeOutrosArtigos = 0;  ///< items whose article came after kMaximoDeArtigos others
  Centavos valorDeOutrosArtigos = 0;
  Sequencia cro;  ///< of the interventions and the reductions
  std::vector<Intervencao> intervencoes;

  /// The days by month, AAAAMM.
  std::map<std::string, Movimento> meses() const;

  /// Days between the first and the last day of the period without a Z reduction, as runs of AAAAMMDD; none
  /// when the report has no reductions at all.
  struct Intervalo {
    std::string de, ate;
    long dias = 0;
  };
  std::vector<Intervalo> diasSemReducao() const;

  /// At most `quantos` articles, those with the greatest value or quantity first.
  std::vector<Artigo> maioresEmValor(std::size_t quantos) const;
  std::vector<Artigo> maioresEmQuantidade(std::size_t quantos) const;
};

/// Whether a totalizer of E13 is a tax code: anything but a discount, a surcharge, a cancellation or the sum
/// of the non-fiscal ones.
bool deImposto(const std::string& totalizador);

/// Reads a report to its end; a read error is in LeitorDeLinhas::erro.
ResumoDoRelatorio resume(LeitorDeLinhas& linhas);

}  // namespace cotepe
