#include "Resumo/Resumidor.h"

#include <unordered_map>
#include <utility>

#include "Leitor/Coluna.h"
#include "Resumo/DocumentosLidos.h"

namespace cotepe {

/// What is done with the lines of each register.
class Resumidor::Registros {
 public:
  void linha(const RegistroLido& lido);
  ResumoDoRelatorio conclui();

  DocumentosLidos cupons, naoFiscais;  // by CCF and by GNF
  ResumoDoRelatorio resumo;

 private:
  void e01(const RegistroLido& lido);
  void e02(const RegistroLido& lido);
  void e09(const RegistroLido& lido);
  void e11(const RegistroLido& lido);
  void e12(const RegistroLido& lido);
  void e13(const RegistroLido& lido);
  void e14(const RegistroLido& lido);
  void e15(const RegistroLido& lido);
  void e16(const RegistroLido& lido);
  void e17(const RegistroLido& lido);
  void e18(const RegistroLido& lido);
  void e19(const RegistroLido& lido);
  void e21(const RegistroLido& lido);

  Movimento& dia(std::string_view bytes);
  Movimento& diaDaReducao(const RegistroLido& lido, const Coluna& crz);
  void vende(const RegistroLido& lido, Centavos total);
  std::int64_t milesimos(const RegistroLido& lido) const;

  // Reads a number, or counts the record as one that cannot be read.
  bool le(const RegistroLido& lido, const Coluna& coluna, std::int64_t& valor) {
    const bool lido_ = coluna.le(lido, valor);
    if (!lido_) ++resumo.ilegiveis;
    return lido_;
  }

  static void anota(Sequencia& sequencia, const RegistroLido& lido, const Coluna& coluna) {
    std::int64_t valor = 0;
    if (coluna.le(lido, valor) && valor != 0) sequencia.anota(valor, coluna.largura(lido));
  }

  Movimento semDia_;  // collects what belongs to no day
  std::string ultimoDia_;
  Movimento* movimentoDoUltimoDia_ = nullptr;
  std::unordered_map<std::int64_t, std::string> diasDasReducoes_;  // by CRZ
  std::unordered_map<std::string, std::size_t> artigos_;           // code, a NUL and description
  std::string chave_;

  Coluna cnpj2_{kE02, "CNPJ"}, inscricao2_{kE02, "Inscrição estadual"}, razao2_{kE02, "Razão social"},
      endereco2_{kE02, "Endereço"}, cro2_{kE02, "CRO"}, gt2_{kE02, "Totalizador geral (GT)"};
  Coluna cro9_{kE09, "CRO"}, data9_{kE09, "Data da intervenção"}, hora9_{kE09, "Hora da intervenção"},
      perda9_{kE09, "Perda de dados da MT"};
  Coluna data11_{kE11, "Data de geração"}, hora11_{kE11, "Hora de geração"};
  Coluna crz12_{kE12, "CRZ"}, cro12_{kE12, "CRO"}, data12_{kE12, "Data do movimento"},
      venda12_{kE12, "Venda bruta diária"};
  Coluna crz13_{kE13, "CRZ"}, totalizador13_{kE13, "Totalizador parcial"}, valor13_{kE13, "Valor acumulado"};
  Coluna ccf14_{kE14, "CCF"}, coo14_{kE14, "COO"}, data14_{kE14, "Data de emissão"},
      desconto14_{kE14, "Desconto"}, acrescimo14_{kE14, "Acréscimo"}, total14_{kE14, "Valor total líquido"},
      cancelado14_{kE14, "Cancelado (S/N)"};
  Coluna ccf15_{kE15, "CCF"}, codigo15_{kE15, "Código"}, descricao15_{kE15, "Descrição"},
      quantidade15_{kE15, "Quantidade"}, unidade15_{kE15, "Unidade"}, desconto15_{kE15, "Desconto"},
      acrescimo15_{kE15, "Acréscimo"}, total15_{kE15, "Valor total líquido"},
      totalizador15_{kE15, "Totalizador parcial"}, cancelado15_{kE15, "Cancelado (S/N)"},
      casas15_{kE15, "Casas decimais da quantidade"};
  Coluna coo16_{kE16, "COO"}, gnf16_{kE16, "GNF"}, crz16_{kE16, "CRZ"},
      simbolo16_{kE16, "Símbolo do documento"}, data16_{kE16, "Data final de emissão"};
  Coluna totalizador17_{kE17, "Totalizador não fiscal"}, valor17_{kE17, "Valor acumulado"};
  Coluna meio18_{kE18, "Meio de pagamento"}, valor18_{kE18, "Valor acumulado"};
  Coluna coo19_{kE19, "COO"}, gnf19_{kE19, "GNF"}, data19_{kE19, "Data de emissão"},
      total19_{kE19, "Valor total líquido"}, cancelado19_{kE19, "Cancelado (S/N)"};
  Coluna meio21_{kE21, "Meio de pagamento"}, pago21_{kE21, "Valor pago"},
      estornado21_{kE21, "Valor estornado"};
};

void Resumidor::Registros::linha(const RegistroLido& lido) {
  ++resumo.linhas;
  resumo.bytes =
      lido.linha.posicao + lido.linha.tamanho + (lido.linha.comCr ? 1 : 0) + (lido.linha.semFim ? 0 : 1);
  if (lido.assinatura()) return;
  if (lido.registro == nullptr) {
    ++resumo.desconhecidas;
    return;
  }
  const auto indice = static_cast<std::size_t>(lido.indice);
  ++resumo.registros[indice];
  if (lido.vazio) {
    ++resumo.vazios[indice];
    return;
  }
  using Leitor = void (Registros::*)(const RegistroLido&);
  static constexpr std::pair<const Registro*, Leitor> kLeitores[] = {
      {&kE01, &Registros::e01}, {&kE02, &Registros::e02}, {&kE09, &Registros::e09}, {&kE11, &Registros::e11},
      {&kE12, &Registros::e12}, {&kE13, &Registros::e13}, {&kE14, &Registros::e14}, {&kE15, &Registros::e15},
      {&kE16, &Registros::e16}, {&kE17, &Registros::e17}, {&kE18, &Registros::e18}, {&kE19, &Registros::e19},
      {&kE21, &Registros::e21}};
  for (const auto& [registro, leitor] : kLeitores)
    if (registro == lido.registro) return (this->*leitor)(lido);
}

// The day of a date on the line; for an invalid date, an entry that nobody reads.
Movimento& Resumidor::Registros::dia(std::string_view bytes) {
  if (movimentoDoUltimoDia_ != nullptr && bytes == ultimoDia_) return *movimentoDoUltimoDia_;
  if (!dataPossivel(bytes)) {
    ++resumo.semDia;
    return semDia_;
  }
  ultimoDia_ = bytes;
  movimentoDoUltimoDia_ = &resumo.dias[ultimoDia_];
  return *movimentoDoUltimoDia_;
}

Movimento& Resumidor::Registros::diaDaReducao(const RegistroLido& lido, const Coluna& crz) {
  std::int64_t numero = 0;
  const auto achado = crz.le(lido, numero) ? diasDasReducoes_.find(numero) : diasDasReducoes_.end();
  return dia(achado != diasDasReducoes_.end() ? std::string_view(achado->second) : std::string_view());
}

void Resumidor::Registros::e01(const RegistroLido& lido) {
  Identificacao& quem = resumo.identificacao;
  const auto texto = [&lido](const char* rotulo) {
    return std::string(semBrancosNoFim(lido.bytesDe(rotulo)));
  };
  quem.fabricacao = texto("Nº de fabricação");
  quem.tipo = texto("Tipo de ECF");
  quem.marca = texto("Marca");
  quem.modelo = texto("Modelo");
  quem.versaoSb = texto("Versão do software básico");
  quem.numeroSequencial = texto("Nº sequencial do ECF");
  quem.comando = texto("Comando de geração");
  quem.crzInicial = texto("CRZ inicial");
  quem.crzFinal = texto("CRZ final");
  quem.dataInicial = texto("Data inicial");
  quem.dataFinal = texto("Data final");
  quem.versaoDoGerador = texto("Versão do programa gerador");
  quem.versaoDoLeiaute = texto("Versão do leiaute");
}

void Resumidor::Registros::e02(const RegistroLido& lido) {
  Identificacao& quem = resumo.identificacao;
  if (resumo.registros[static_cast<std::size_t>(lido.indice)] > 1) return;
  quem.cnpj = cnpj2_.texto(lido);
  quem.inscricao = inscricao2_.texto(lido);
  quem.razaoSocial = razao2_.texto(lido);
  quem.endereco = endereco2_.texto(lido);
  quem.cro = cro2_.texto(lido);
  static_cast<void>(le(lido, gt2_, quem.totalGeral));
}

void Resumidor::Registros::e09(const RegistroLido& lido) {
  Intervencao intervencao;
  if (!le(lido, cro9_, intervencao.cro)) return;
  intervencao.data = data9_.texto(lido);
  intervencao.hora = hora9_.texto(lido);
  intervencao.perda = perda9_.texto(lido);
  intervencao.linha = lido.linha.numero;
  anota(resumo.cro, lido, cro9_);
  resumo.intervencoes.push_back(std::move(intervencao));
}

void Resumidor::Registros::e11(const RegistroLido& lido) {
  resumo.identificacao.dataDeGeracao = data11_.texto(lido);
  resumo.identificacao.horaDeGeracao = hora11_.texto(lido);
}

void Resumidor::Registros::e12(const RegistroLido& lido) {
  Movimento& movimento = dia(data12_.bytes(lido));
  std::int64_t venda = 0, crz = 0;
  anota(resumo.cro, lido, cro12_);
  anota(movimento.crz, lido, crz12_);
  anota(resumo.total.crz, lido, crz12_);
  movimento.comReducao = true;
  ++movimento.reducoes;
  if (crz12_.le(lido, crz) && &movimento != &semDia_) diasDasReducoes_.emplace(crz, data12_.bytes(lido));
  if (!le(lido, venda12_, venda)) return;
  acumula(movimento.dasReducoes.bruta, venda);
}

void Resumidor::Registros::e13(const RegistroLido& lido) {
  const std::string totalizador = totalizador13_.texto(lido);
  std::int64_t valor = 0;
  if (!le(lido, valor13_, valor)) return;
  acumula(resumo.totalizadores[totalizador].acumulado, valor);
  if (totalizador == "OPNF") return;
  Valores& valores = diaDaReducao(lido, crz13_).dasReducoes;
  if (totalizador[0] == 'D' && !deImposto(totalizador)) return acumula(valores.descontos, valor);
  if (totalizador[0] == 'A' && !deImposto(totalizador)) return acumula(valores.acrescimos, valor);
  if (!deImposto(totalizador)) return acumula(valores.cancelamentos, valor);
  acumula(valores.liquida, valor);
}

void Resumidor::Registros::e14(const RegistroLido& lido) {
  Movimento& movimento = dia(data14_.bytes(lido));
  std::int64_t ccf = 0, desconto = 0, acrescimo = 0, total = 0;
  anota(movimento.ccf, lido, ccf14_);
  anota(movimento.coo, lido, coo14_);
  anota(resumo.total.ccf, lido, ccf14_);
  anota(resumo.total.coo, lido, coo14_);
  const bool cancelado = cancelado14_.bytes(lido) == "S";
  if (ccf14_.le(lido, ccf)) cupons.anota(ccf, data14_.bytes(lido), cancelado);
  ++movimento.cupons;
  if (cancelado) ++movimento.cuponsCancelados;
  if (!desconto14_.le(lido, desconto) || !acrescimo14_.le(lido, acrescimo) || !le(lido, total14_, total))
    return;
  acumula(movimento.dosCupons.bruta, acrescimo);
  acumula(movimento.dosCupons.descontos, desconto);
  acumula(movimento.dosCupons.acrescimos, acrescimo);
  acumula(cancelado ? movimento.dosCupons.cancelamentos : movimento.dosCupons.liquida, total);
}

void Resumidor::Registros::e15(const RegistroLido& lido) {
  std::int64_t ccf = 0, desconto = 0, acrescimo = 0, total = 0;
  const DocumentoLido* cupom = ccf15_.le(lido, ccf) ? cupons.acha(ccf) : nullptr;
  Movimento& movimento = dia(cupom != nullptr ? std::string_view(cupom->dia) : std::string_view());
  const bool cancelado = cancelado15_.bytes(lido) == "S";
  ++movimento.itens;
  if (cancelado) ++movimento.itensCancelados;
  if (!desconto15_.le(lido, desconto) || !acrescimo15_.le(lido, acrescimo) || !le(lido, total15_, total))
    return;
  acumula(movimento.dosCupons.bruta, total);
  acumula(movimento.dosCupons.bruta, desconto);
  acumula(movimento.dosCupons.descontos, desconto);
  acumula(movimento.dosCupons.acrescimos, acrescimo);
  if (cancelado) acumula(movimento.dosCupons.cancelamentos, total);
  if (!cancelado && (cupom == nullptr || !cupom->cancelado)) vende(lido, total);
}

std::int64_t Resumidor::Registros::milesimos(const RegistroLido& lido) const {
  std::int64_t quantidade = 0;
  if (!quantidade15_.le(lido, quantidade)) return 0;
  return casas15_.bytes(lido) == "3" ? quantidade : 10 * quantidade;
}

void Resumidor::Registros::vende(const RegistroLido& lido, Centavos total) {
  chave_ = semBrancosNoFim(totalizador15_.bytes(lido));
  Totalizador& totalizador = resumo.totalizadores[chave_];
  acumula(totalizador.dosItens, total);
  ++totalizador.itens;
  const std::string_view codigo = semBrancosNoFim(codigo15_.bytes(lido));
  const std::string_view descricao = semBrancosNoFim(descricao15_.bytes(lido));
  chave_ = codigo;
  chave_ += '\0';
  chave_ += descricao;
  auto achado = artigos_.find(chave_);
  if (achado == artigos_.end()) {
    if (resumo.artigos.size() == ResumoDoRelatorio::kMaximoDeArtigos) {
      ++resumo.itensDeOutrosArtigos;
      return acumula(resumo.valorDeOutrosArtigos, total);
    }
    achado = artigos_.emplace(chave_, resumo.artigos.size()).first;
    resumo.artigos.push_back({std::string(codigo), std::string(descricao), unidade15_.texto(lido)});
  }
  Artigo& artigo = resumo.artigos[achado->second];
  acumula(artigo.milesimos, milesimos(lido));
  acumula(artigo.valor, total);
  ++artigo.vezes;
}

void Resumidor::Registros::e16(const RegistroLido& lido) {
  Movimento& movimento = dia(data16_.bytes(lido));
  anota(movimento.coo, lido, coo16_);
  anota(movimento.gnf, lido, gnf16_);
  anota(resumo.total.coo, lido, coo16_);
  anota(resumo.total.gnf, lido, gnf16_);
  anota(resumo.total.crz, lido, crz16_);
  ++resumo.documentos[simbolo16_.texto(lido)];
}

void Resumidor::Registros::e17(const RegistroLido& lido) {
  std::int64_t valor = 0;
  if (le(lido, valor17_, valor)) acumula(resumo.naoFiscais[totalizador17_.texto(lido)], valor);
}

void Resumidor::Registros::e18(const RegistroLido& lido) {
  std::int64_t valor = 0;
  if (le(lido, valor18_, valor)) acumula(resumo.meios[meio18_.texto(lido)].acumulado, valor);
}

void Resumidor::Registros::e19(const RegistroLido& lido) {
  Movimento& movimento = dia(data19_.bytes(lido));
  std::int64_t gnf = 0, total = 0;
  anota(movimento.coo, lido, coo19_);
  anota(movimento.gnf, lido, gnf19_);
  anota(resumo.total.coo, lido, coo19_);
  anota(resumo.total.gnf, lido, gnf19_);
  const bool cancelado = cancelado19_.bytes(lido) == "S";
  if (gnf19_.le(lido, gnf)) naoFiscais.anota(gnf, data19_.bytes(lido), cancelado);
  ++movimento.naoFiscais;
  if (cancelado) ++movimento.naoFiscaisCancelados;
  if (le(lido, total19_, total) && !cancelado) acumula(movimento.valorNaoFiscal, total);
}

void Resumidor::Registros::e21(const RegistroLido& lido) {
  std::int64_t pago = 0, estornado = 0;
  if (!estornado21_.le(lido, estornado) || !le(lido, pago21_, pago)) return;
  chave_ = semBrancosNoFim(meio21_.bytes(lido));
  MeioDePagamento& meio = resumo.meios[chave_];
  acumula(meio.pago, pago);
  acumula(meio.estornado, estornado);
  ++meio.pagamentos;
}

// The counters of the whole period are there already.
ResumoDoRelatorio Resumidor::Registros::conclui() {
  Movimento& total = resumo.total;
  for (const auto& [dia, movimento] : resumo.dias) {
    Movimento semContadores = movimento;
    semContadores.crz = semContadores.coo = semContadores.ccf = semContadores.gnf = Sequencia();
    total.soma(semContadores);
  }
  total.soma(semDia_);
  return std::move(resumo);
}

Resumidor::Resumidor() : registros_(std::make_unique<Registros>()) {}

Resumidor::~Resumidor() = default;

void Resumidor::linha(const RegistroLido& lido) { registros_->linha(lido); }

ResumoDoRelatorio Resumidor::conclui(const AjusteDoLeiaute& leiaute) {
  registros_->resumo.leiaute = leiaute;
  return registros_->conclui();
}

const DocumentoLido* Resumidor::cupom(std::int64_t ccf) const { return registros_->cupons.acha(ccf); }

const DocumentoLido* Resumidor::naoFiscal(std::int64_t gnf) const { return registros_->naoFiscais.acha(gnf); }

}  // namespace cotepe
