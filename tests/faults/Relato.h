// What a fault test says of itself: a row of docs/measured/reliability.md.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <utility>

/// Whether the long form of the fault tests was asked for (COTEPE_TORTURE in the environment), as
/// scripts/torture does; without it every test runs a part of its cases that takes seconds.
inline bool formaLonga() { return std::getenv("COTEPE_TORTURE") != nullptr; }

/// The number of cases of the form that runs.
template <class Numero>
Numero casos(Numero curta, Numero longa) {
  return formaLonga() ? longa : curta;
}

/// One row of the table: under the heading `assunto`, what was made to fail, in how many cases, and in how
/// many of those the expectations of the test did not hold. Written at the end of the test to the file named
/// by COTEPE_RELATO, as one tab-separated line; without that variable nothing is written.
class Relato {
 public:
  Relato(std::string assunto, std::string oQue) : assunto_(std::move(assunto)), oQue_(std::move(oQue)) {}
  ~Relato() {
    const char* arquivo = std::getenv("COTEPE_RELATO");
    if (arquivo == nullptr) return;
    std::ofstream(arquivo, std::ios::app)
        << assunto_ + '\t' + oQue_ + '\t' + std::to_string(casos_) + '\t' + std::to_string(falhas_) + '\n';
  }
  Relato(const Relato&) = delete;
  Relato& operator=(const Relato&) = delete;

  /// A case is over: counted as failed when an expectation failed since the one before.
  void caso() {
    ++casos_;
    const auto* teste = testing::UnitTest::GetInstance()->current_test_info();
    const int partes = teste->result()->total_part_count();
    if (partes > partes_) ++falhas_;
    partes_ = partes;
  }
  long quantos() const { return casos_; }

 private:
  std::string assunto_;
  std::string oQue_;
  long casos_ = 0;
  long falhas_ = 0;
  int partes_ = 0;
};
