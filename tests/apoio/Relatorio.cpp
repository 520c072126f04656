#include "Relatorio.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iostream>

#include "Achados/SaidaDeAchados.h"

Relatorio Relatorio::bom(int leiaute) {
  const std::string nome = PASTA_DOS_RELATORIOS "leiaute" + std::to_string(leiaute) + ".txt";
  std::ifstream arquivo(nome);
  std::vector<std::string> linhas;
  for (std::string linha; std::getline(arquivo, linha);) linhas.push_back(linha);
  if (linhas.empty()) {
    std::cerr << "cannot read " << nome << '\n';
    std::abort();
  }
  return Relatorio(std::move(linhas));
}

void Relatorio::poe(int linha, int posicao, const std::string& texto) {
  (*this)[linha].replace(static_cast<std::size_t>(posicao) - 1, texto.size(), texto);
}

void Relatorio::troca(int linha, int posicao, const std::string& de, const std::string& para) {
  const auto inicio = static_cast<std::size_t>(posicao) - 1;
  if ((*this)[linha].compare(inicio, de.size(), de) != 0) {
    std::cerr << "line " << linha << " does not hold \"" << de << "\" at " << posicao << '\n';
    std::abort();
  }
  (*this)[linha].replace(inicio, de.size(), para);
}

void Relatorio::insere(int linha, const std::string& texto) {
  linhas_.insert(linhas_.begin() + (linha - 1), texto);
}

void Relatorio::remove(int linha) { linhas_.erase(linhas_.begin() + (linha - 1)); }

void Relatorio::permuta(int uma, int outra) { std::swap((*this)[uma], (*this)[outra]); }

std::string Relatorio::texto() const {
  std::string tudo;
  for (const std::string& linha : linhas_) tudo += linha + '\n';
  return tudo;
}

cotepe::Supressoes menos(const std::vector<const char*>& nomes) {
  cotepe::Supressoes desligadas;
  std::size_t quantas = 0;
  for (const cotepe::Regra* regra : cotepe::validacao::kRegras) {
    const bool fica = std::find(nomes.begin(), nomes.end(), std::string(regra->nome)) != nomes.end();
    if (fica)
      ++quantas;
    else
      desligadas.desliga(*regra);
  }
  if (quantas != nomes.size()) {
    std::cerr << "no such rule\n";
    std::abort();
  }
  return desligadas;
}

std::vector<std::string> achados(const std::string& relatorio, const cotepe::Supressoes& desligadas) {
  struct Coletor : cotepe::RecebeAchados {
    std::vector<std::string> textos;
    void recebe(const cotepe::Achado& achado) override { textos.push_back(cotepe::textoDoAchado(achado)); }
  } coletor;
  cotepe::LeitorDeLinhas linhas{std::string_view(relatorio)};
  cotepe::Validacao(coletor, {"r.txt", desligadas}).valida(linhas);
  return coletor.textos;
}
