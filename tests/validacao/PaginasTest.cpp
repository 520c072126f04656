// Lists of which most stands in a file, and a validation whose memory does not grow with the report.
#include "Validacao/Paginas.h"

#include <gtest/gtest.h>
#include <stdlib.h>  // NOLINT(modernize-deprecated-headers): setenv
#include <sys/resource.h>

#include <csignal>
#include <cstring>
#include <fstream>
#include <stdexcept>

#include "Achados/SaidaDeAchados.h"
#include "Relatorio.h"
#include "Validacao/TabelaPorCoo.h"

namespace cotepe {
namespace {

constexpr std::size_t kMuitos = 20 * Paginas<std::uint32_t>::kPorPagina + 7;

// Writes, reads and writes again over all of the pages, in order and across.
void confere(Paginas<std::uint32_t>& lista) {
  for (std::size_t i = 0; i < kMuitos; ++i) lista.acrescenta(static_cast<std::uint32_t>(3 * i));
  ASSERT_EQ(lista.size(), kMuitos);
  for (std::size_t i = 0; i < kMuitos; ++i) ASSERT_EQ(lista.em(i)++, 3 * i);
  for (std::size_t i = 0, k = 0; i < kMuitos; i += 4099, k = (k + i * 7919) % kMuitos)
    ASSERT_EQ(lista.em(k), 3 * k + 1) << k;
}

TEST(Paginas, KeepWhatWasWrittenInAFile) {
  Paginas<std::uint32_t> lista;
  confere(lista);
}

TEST(Paginas, StayInMemoryWhereThereIsNoRoomForAFile) {
  const char* antes = std::getenv("TMPDIR");
  const std::string guardado = antes == nullptr ? "" : antes;
  setenv("TMPDIR", "/nonexistent", 1);
  Paginas<std::uint32_t> lista;
  confere(lista);
  if (antes == nullptr)
    unsetenv("TMPDIR");
  else
    setenv("TMPDIR", guardado.c_str(), 1);
}

// TMPDIR of the process, as it was again at the end.
class PastaTemporaria {
 public:
  explicit PastaTemporaria(const char* nome) {
    nome == nullptr ? unsetenv("TMPDIR") : setenv("TMPDIR", nome, 1);
  }
  ~PastaTemporaria() { guardada_.empty() ? unsetenv("TMPDIR") : setenv("TMPDIR", guardada_.c_str(), 1); }
  PastaTemporaria(const PastaTemporaria&) = delete;
  PastaTemporaria& operator=(const PastaTemporaria&) = delete;

 private:
  std::string guardada_ = std::getenv("TMPDIR") == nullptr ? "" : std::getenv("TMPDIR");
};

TEST(ArquivoTemporario, StandsInTheSystemsFolderWhereNoneIsNamed) {
  for (const char* nome : {static_cast<const char*>(nullptr), ""}) {
    const PastaTemporaria pasta(nome);
    ArquivoTemporario arquivo;
    EXPECT_TRUE(arquivo.escreve(2, "abc", 3));
    char lido[3] = {};
    arquivo.le(2, lido, 3);
    EXPECT_EQ(std::string(lido, 3), "abc");
  }
}

TEST(ArquivoTemporario, WhatIsNotThereCannotBeReadAgain) {
  ArquivoTemporario arquivo;
  ASSERT_TRUE(arquivo.escreve(0, "abc", 3));
  char lido[8];
  EXPECT_THROW(arquivo.le(0, lido, 8), std::runtime_error);
}

TEST(ArquivoTemporario, WithoutRoomIsNotWritten) {
  const auto antes = std::signal(SIGXFSZ, SIG_IGN);
  rlimit limite{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limite), 0);
  const rlimit pouco{1 << 20, limite.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &pouco), 0);
  ArquivoTemporario arquivo;
  EXPECT_TRUE(arquivo.escreve(0, "abc", 3));
  EXPECT_FALSE(arquivo.escreve(2 << 20, "abc", 3));
  EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limite), 0);
  static_cast<void>(std::signal(SIGXFSZ, antes));
}

struct Documento {
  std::uint32_t coo = 0, linha = 0;
};

TEST(TabelaPorCoo, FindsTheFirstOneWithACooWhateverTheOrder) {
  TabelaPorCoo<Documento> tabela;
  std::uint32_t linha = 0;
  std::vector<std::uint32_t> coos;
  for (std::uint32_t i = 1; i <= 50000; ++i) coos.push_back(2 * i);
  for (const std::uint32_t coo : {7U, 100000U, 3U, 8U, 3U}) coos.push_back(coo);  // two of them again
  for (const std::uint32_t coo : coos) tabela.acrescenta(coo).linha = ++linha;
  for (std::uint32_t i = 50000; i > 499; i -= 499) ASSERT_EQ(tabela.acha(2 * i)->linha, i);
  for (std::uint32_t i = 1; i <= 50000; ++i) ASSERT_EQ(tabela.acha(2 * i)->linha, i);
  EXPECT_EQ(tabela.acha(7)->linha, 50001U);
  EXPECT_EQ(tabela.acha(3)->linha, 50003U);
  for (const std::uint32_t nenhum : {0U, 1U, 99999U, 100001U})
    EXPECT_EQ(tabela.acha(nenhum), nullptr) << nenhum;
  std::vector<std::uint32_t> vistos;
  tabela.paraCada([&](const Documento& documento) { vistos.push_back(documento.coo); });
  EXPECT_EQ(vistos, coos);
}

// A report made while it is read: coupons, then an item of each, then a payment of each, all of nothing.
class Fita {
 public:
  explicit Fita(long cupons) : cupons_(cupons) {
    Relatorio bom = Relatorio::bom();
    for (int i = 1; i < 20; ++i) cabeca_ += bom[i] + '\n';
    moldes_[0] = bom[22];
    moldes_[1] = bom[27];
    moldes_[2] = bom[45];
    zera(moldes_[0], {{67, 14}, {81, 13}, {95, 13}, {109, 14}, {124, 13}});
    moldes_[0][122] = 'N';
    moldes_[0][136] = ' ';
    zera(moldes_[1], {{176, 7}, {186, 8}, {194, 8}, {202, 8}, {210, 14}});
    zera(moldes_[2], {{80, 13}, {94, 13}});
    moldes_[1].replace(58, 3, "001");
    resto_ = cabeca_;
  }

  long le(char* destino, std::size_t tamanho) {
    if (resto_.size() - usado_ == 0) proxima();
    const std::size_t quantos = std::min(tamanho, resto_.size() - usado_);
    std::memcpy(destino, resto_.data() + usado_, quantos);
    usado_ += quantos;
    return static_cast<long>(quantos);
  }

 private:
  static void zera(std::string& linha, const std::vector<std::pair<std::size_t, std::size_t>>& campos) {
    for (const auto& [de, quantos] : campos) linha.replace(de - 1, quantos, quantos, '0');
  }

  void proxima() {
    usado_ = 0;
    resto_.clear();
    if (cupom_ == cupons_) cupom_ = 0, ++molde_;
    if (molde_ == 3) return;
    char numeros[64];
    static_cast<void>(std::snprintf(numeros, sizeof numeros, "%06ld%06ld", cupom_ + 1, cupom_ + 1));
    ++cupom_;
    resto_ = moldes_[molde_];
    resto_.replace(46, 12, numeros, 12);
    resto_ += '\n';
  }

  long cupons_, cupom_ = 0;
  std::size_t molde_ = 0, usado_ = 0;
  std::string cabeca_, resto_, moldes_[3];
};

class Contagem final : public RecebeAchados {
 public:
  void recebe(const Achado& achado) override {
    if (++total < 20) std::cout << textoDoAchado(achado) << '\n';
  }
  long total = 0;
};

long picoEmKb() {
  std::ifstream estado("/proc/self/status");
  for (std::string linha; std::getline(estado, linha);)
    if (linha.compare(0, 6, "VmHWM:") == 0) return std::stol(linha.substr(6));
  return -1;
}

long valida(long cupons) {
  Fita fita(cupons);
  Contagem achados;
  LeitorDeLinhas linhas([&](char* destino, std::size_t tamanho) { return fita.le(destino, tamanho); });
  Validacao(achados, {"r.txt", {}}).valida(linhas);
  return achados.total;
}

// Ten thousand lines, then a million.
TEST(Validacao, MemoryDoesNotGrowWithTheReport) {
  const long achados = valida(3333);
  EXPECT_LT(achados, 20);  // of what the report made up here has not, such as E16
  const long antes = picoEmKb();
  EXPECT_EQ(valida(333333), achados);
  const long depois = picoEmKb();
  std::cout << "peak " << antes << " kB, then " << depois << " kB\n";
#ifndef __SANITIZE_ADDRESS__
  EXPECT_LT(depois - antes, 3072);  // eight pages of three lists, one of them for each kind of coupon
#endif
}

}  // namespace
}  // namespace cotepe
