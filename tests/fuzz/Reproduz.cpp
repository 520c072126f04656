// Gives a target every file of the folders named, where no fuzzer does.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho);

int main(int argc, char** argv) {
  int arquivos = 0;
  for (int i = 1; i < argc; ++i) {
    // A target may change the folder that relative paths begin at.
    for (const auto& entrada : std::filesystem::directory_iterator(std::filesystem::absolute(argv[i]))) {
      std::ifstream arquivo(entrada.path(), std::ios::binary);
      if (!arquivo) {
        std::printf("cannot read %s\n", entrada.path().c_str());
        return 1;
      }
      const std::string bytes{std::istreambuf_iterator<char>(arquivo), {}};
      LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
      ++arquivos;
    }
  }
  std::printf("%d files\n", arquivos);
  return arquivos == 0 ? 1 : 0;
}
