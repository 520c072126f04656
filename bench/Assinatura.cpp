// How fast a report is signed, compared with md5sum over the same file, and the memory that it needs:
//   assinatura [MEGABYTES [FOLDER]]
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rsa.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "Assinatura/Assinatura.h"

namespace {

using namespace cotepe;

constexpr int kVezes = 5;

std::string novaChave() {
  EVP_PKEY* chave = EVP_RSA_gen(1024);
  BIO* bio = BIO_new(BIO_s_mem());
  PEM_write_bio_PrivateKey(bio, chave, nullptr, nullptr, 0, nullptr, nullptr);
  char* texto = nullptr;
  const long tamanho = BIO_get_mem_data(bio, &texto);
  std::string pem(texto, static_cast<std::size_t>(tamanho));
  BIO_free(bio);
  EVP_PKEY_free(chave);
  return pem;
}

void escreveRelatorio(const std::string& arquivo, long megabytes) {
  std::FILE* aberto = std::fopen(arquivo.c_str(), "wb");
  const std::string linha = "E15" + std::string(196, 'x') + "\n";
  std::fputs("E01\n", aberto);
  for (long i = 0; i < megabytes * 5000; ++i) std::fwrite(linha.data(), 1, linha.size(), aberto);
  std::fclose(aberto);
}

template <class Trabalho>
double segundos(const Trabalho& trabalho) {
  const auto antes = std::chrono::steady_clock::now();
  trabalho();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - antes).count();
}

void assinaArquivo(const std::string& de, const std::string& para, const ChavePrivada& chave) {
  std::FILE* lido = std::fopen(de.c_str(), "rb");
  std::FILE* escrito = std::fopen(para.c_str(), "wb");
  std::setvbuf(lido, nullptr, _IONBF, 0);
  std::setvbuf(escrito, nullptr, _IONBF, 0);
  assina([&](char* bytes, std::size_t n) { return static_cast<long>(std::fread(bytes, 1, n, lido)); },
         [&](std::string_view bytes) { std::fwrite(bytes.data(), 1, bytes.size(), escrito); }, {&chave});
  std::fclose(lido);
  std::fclose(escrito);
}

std::string pico() {
  std::ifstream linhas("/proc/self/status");
  for (std::string linha; std::getline(linhas, linha);)
    if (linha.compare(0, 6, "VmHWM:") == 0) return linha.substr(6);
  return "unknown";
}

}  // namespace

int main(int quantos, char** argumentos) {
  const long megabytes = quantos > 1 ? std::atol(argumentos[1]) : 512;
  const std::string pasta = quantos > 2 ? argumentos[2] : "/tmp";
  const std::string plano = pasta + "/assinatura.txt", pronto = pasta + "/assinatura-pronta.txt";
  const ChavePrivada chave = ChavePrivada::le(novaChave(), nullptr);
  escreveRelatorio(plano, megabytes);
  for (int i = 0; i < kVezes; ++i) {
    const double soma = segundos([&] {
      if (std::system(("md5sum '" + plano + "' >/dev/null").c_str()) != 0) std::abort();
    });
    const double assinatura = segundos([&] { assinaArquivo(plano, pronto, chave); });
    std::printf("%ld MB: md5sum %.0f MB/s, sign %.0f MB/s, ratio %.2f\n", megabytes,
                static_cast<double>(megabytes) / soma, static_cast<double>(megabytes) / assinatura,
                soma / assinatura);
  }
  std::printf("peak memory %s\n", pico().c_str());
  static_cast<void>(std::remove(plano.c_str()));
  static_cast<void>(std::remove(pronto.c_str()));
  return 0;
}
