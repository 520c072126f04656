// A good report to spoil: the tests change one thing in it and look at what is said.
#pragma once

#include <string>
#include <vector>

#include "Validacao/Validacao.h"

/// The lines of a report, counted from 1.
class Relatorio {
 public:
  /// A small whole report of two reductions, command TDM, in layout 1 or 2; typed by hand.
  static Relatorio bom(int leiaute = 1);

  explicit Relatorio(std::vector<std::string> linhas) : linhas_(std::move(linhas)) {}

  std::string& operator[](int linha) { return linhas_[static_cast<std::size_t>(linha) - 1]; }
  int quantas() const { return static_cast<int>(linhas_.size()); }

  /// Overwrites bytes of a line from a position (from 1) on.
  void poe(int linha, int posicao, const std::string& texto);
  /// The same where other bytes stand there now; fails the test where those do not.
  void troca(int linha, int posicao, const std::string& de, const std::string& para);
  void insere(int linha, const std::string& texto);
  void remove(int linha);
  void permuta(int uma, int outra);

  /// Every line with a line-feed.
  std::string texto() const;

 private:
  std::vector<std::string> linhas_;
};

/// What is said of a report named r.txt, in text, in order.
std::vector<std::string> achados(const std::string& relatorio, const cotepe::Supressoes& desligadas = {});

/// Every rule of the reports but those of these names.
cotepe::Supressoes menos(const std::vector<const char*>& nomes);
